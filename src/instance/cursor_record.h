// What the pointer looks like over the box.
#pragma once

#include <vector>

#include "host/geometry.h"
#include "host/image.h"

namespace tq {

struct CursorImage {
    SurfaceRef image;  ///< none when its file is missing
    Point hotspot;     ///< in the image, pixels
};

struct MouseCursors {
    std::vector<CursorImage> images;
    long current = -1;  ///< a CursorIndex of interaction/cursors.h
};

}  // namespace tq
