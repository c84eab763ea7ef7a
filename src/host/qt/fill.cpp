// Filling rectangles on whole pixels of the screen: most of what a piano roll is made of.
#include <algorithm>

#include "host/qt/painter.h"

namespace tq {

namespace {

/// A premultiplied colour times `weight` / 255, both halves of the four bytes at once.
QRgb weighted(QRgb color, unsigned weight) {
    auto halves = [weight](unsigned two) {
        unsigned t = two * weight;
        return (t + ((t >> 8) & 0xff00ff) + 0x800080) >> 8 & 0xff00ff;
    };
    return halves(color & 0xff00ff) | halves(color >> 8 & 0xff00ff) << 8;
}

}  // namespace

void Graphics::Painter::fill(const QRect& rect, QRgb premultiplied) {
    const QRect inside = rect & clip;
    if (inside.isEmpty()) return;
    const unsigned rest = 255 - static_cast<unsigned>(qAlpha(premultiplied));
    if (rest == 255) return;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        QRgb* first = surface.row(y) + inside.left();
        QRgb* last = first + inside.width();
        if (rest == 0) {
            std::fill(first, last, premultiplied);
        } else {
            std::transform(first, last, first,
                           [=](QRgb under) { return premultiplied + weighted(under, rest); });
        }
    }
}

}  // namespace tq
