// Paints a box without a window.
#pragma once

#include <optional>
#include <string>

#include "host/image.h"

namespace tq {

struct Prseq;

/// Paints boxes into a picture of its own, which is made again only when the box's size changes.
class OffscreenPainter {
 public:
    void paint(Prseq& box);
    /// Paints and writes the picture as a PNG; the reason when that failed.
    std::optional<std::string> paint_to_png(Prseq& box, const std::string& path);

 private:
    SurfaceRef surface_;
};

}  // namespace tq
