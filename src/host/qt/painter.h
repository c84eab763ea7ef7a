// What stands behind surfaces and graphics.
#pragma once

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cstddef>
#include <optional>
#include <utility>

#include "host/graphics.h"
#include "host/image.h"

namespace tq {

struct Surface::Image {
    Image(QImage image, Size view_size, double pixel_ratio)
        : pixels(std::move(image)),
          size(view_size),
          ratio(pixel_ratio),
          bits(reinterpret_cast<QRgb*>(pixels.bits())),
          stride(pixels.bytesPerLine() / 4),
          width(pixels.width()),
          height(pixels.height()) {}
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    QRgb* row(int y) const { return bits + y * stride; }

    QImage pixels;  ///< shared with nobody, so that its bits stay where they are
    Size size;
    double ratio;
    QImage twice;  ///< the same at ratio 2, when a picture came with it
    QRgb* bits;
    std::ptrdiff_t stride;  ///< pixels from a row to the next
    int width, height;      ///< pixels of the screen
};

/// Draws in pixels of the screen: coordinates are translated and scaled on the way in.
struct Graphics::Painter {
    explicit Painter(Surface::Image& image);

    QPointF device(Point point) const { return {(point.x + offset.x) * ratio, (point.y + offset.y) * ratio}; }
    QRectF device(const Rect& rect) const {
        return {device(Point{rect.x, rect.y}), QSizeF(rect.width * ratio, rect.height * ratio)};
    }
    /// The rectangle on whole pixels of the screen, cut to the clip; at least one pixel each way if it has
    /// area.
    QRect snapped(const Rect& rect) const;
    /// The clip, as far as lines and rectangles on whole pixels go.
    QRect cut(double left, double top, double right, double bottom) const;
    /// Puts a colour over pixels of the screen.
    void fill(const QRect& rect, QRgb premultiplied);
    void fill(const QRect& rect) { fill(rect, qPremultiply(color.rgba())); }
    QBrush brush() const { return gradient ? QBrush(*gradient) : QBrush(color); }

    Surface::Image& surface;
    QRect clip;  ///< pixels of the screen; what is outside is not drawn
    QPainter qt;
    double ratio;
    Point offset;
    QColor color = Qt::black;
    std::optional<QLinearGradient> gradient;
    double line_width = 1;
    bool moves_exactly = true;  ///< see Graphics
    QPainterPath path;
    std::optional<Rect> only_rectangle;  ///< the path, when it is nothing else
};

QColor to_qcolor(const Rgba& color);

}  // namespace tq
