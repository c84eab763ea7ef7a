#include "host/mouse_cursor.h"

#include <utility>

#include "host/host.h"

namespace tq {

void jmouse_setcursor(const Object& object, HostCursor shape) {
    object.host().patch.cursor(object, {.shape = shape, .image = nullptr, .hotspot = {}});
}

void jmouse_setcursor_surface(const Object& object, SurfaceRef image, Point hotspot) {
    object.host().patch.cursor(object,
                               {.shape = host_cursor_arrow, .image = std::move(image), .hotspot = hotspot});
}

}  // namespace tq
