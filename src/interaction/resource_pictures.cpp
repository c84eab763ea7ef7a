#include "interaction/resource_pictures.h"

#include <fmt/printf.h>

#include <string>

#include "host/defer.h"
#include "instance/prseq.h"
#include "view/pictures.h"

namespace tq {

SurfaceRef picture_or_error(Prseq& object, const char* filename) {
    SurfaceRef picture = bundled_picture(gensym(filename));
    if (!picture)
        defer_low(object, [name = std::string(filename)](Prseq& o) {
            object_error(o, fmt::sprintf("file %s not found", name));
        });
    return picture;
}

}  // namespace tq
