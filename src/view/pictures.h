// The pictures that come with the program.
#pragma once

#include "host/image.h"
#include "host/symbol.h"

namespace tq {

/// The picture in a file of the resource folder, read when it is first asked for and kept; none when there is
/// no such picture.
SurfaceRef bundled_picture(Symbol filename);
/// Draws all of a picture at its own size.
void draw_picture(Graphics& g, const Surface& picture, Point at);

}  // namespace tq
