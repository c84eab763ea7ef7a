// What the pointer looks like over a box.
#pragma once

#include "host/geometry.h"
#include "host/image.h"

namespace tq {

class Object;

/// The host's own shapes, by its numbers.
enum HostCursor : long { host_cursor_arrow = 1, host_cursor_copying = 5, host_cursor_dragging_hand = 7 };

/// One of the host's shapes, or an image.
struct MouseCursor {
    long shape = host_cursor_arrow;  ///< without an image
    SurfaceRef image;
    Point hotspot;  ///< in the image, pixels
};

void jmouse_setcursor(const Object& object, HostCursor shape);
void jmouse_setcursor_surface(const Object& object, SurfaceRef image, Point hotspot);

}  // namespace tq
