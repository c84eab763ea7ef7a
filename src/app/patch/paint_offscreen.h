// Paints a box without a window.
#pragma once

#include <optional>
#include <string>

#include "host/layers.h"

namespace tq {

struct Prseq;

/// Paints boxes into a picture of its own; what has not changed since the last paint is not painted again.
class OffscreenPainter {
 public:
    /// Pixels of the picture for one of the box.
    double ratio = 1;

    void paint(const Prseq& box);
    /// Paints and writes the picture as a PNG; the reason when that failed.
    std::optional<std::string> paint_to_png(const Prseq& box, const std::string& path);

 private:
    BoxPicture picture_;
};

}  // namespace tq
