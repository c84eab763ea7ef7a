// Painting the box without a window.
#pragma once

#include <optional>
#include <string>

#include "host/image.h"

namespace tq {

struct Prseq;

/// The box as it looks, at `ratio` pixels of the screen for one of the box.
SurfaceRef paint_to_surface(Prseq& object, double ratio = 1);
/// Paints for the sake of what a paint does; the picture is dropped.
void paint_offscreen(Prseq& object);
/// Paints and keeps the picture; the reason when it cannot be written.
std::optional<std::string> paint_box_to_png(Prseq& object, const std::string& path, double ratio = 1);

}  // namespace tq
