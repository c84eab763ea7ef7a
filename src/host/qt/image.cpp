#include "host/image.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "host/files.h"
#include "host/qt/painter.h"

namespace tq {

namespace {

constexpr double largest_side = 16384;  // pixels of the screen

int side(double length, double ratio) {
    return static_cast<int>(std::clamp(std::ceil(length * ratio - 1e-6), 1., largest_side));
}

bool whole(double value) { return std::abs(value - std::round(value)) < 1e-6; }

/// A picture one pixel wide is a vertical gradient: rows of one colour are much faster than stretching.
void draw_rows(Graphics::Painter& p, const QImage& column, const Rect& source, const Rect& destination) {
    QRectF area = p.device(destination);
    QRect snapped = p.snapped(destination);
    for (int y = snapped.top(); y <= snapped.bottom(); ++y) {
        double at = source.y + (y + 0.5 - area.y()) / area.height() * source.height;
        int row = std::clamp(static_cast<int>(at), 0, column.height() - 1);
        p.fill(QRect(snapped.left(), y, snapped.width(), 1),
               reinterpret_cast<const QRgb*>(column.constScanLine(row))[0]);
    }
}

QImage read_picture(const QString& path) {
    QImage pixels = QImageReader(path).read();
    if (pixels.isNull()) return {};
    pixels.convertTo(QImage::Format_ARGB32_Premultiplied);
    pixels.setDevicePixelRatio(1);
    return pixels;
}

/// The picture at ratio 2 that belongs to one, or none.
QImage read_twice(const QString& path, QSize size) {
    const QFileInfo file(path);
    const QString name = file.completeBaseName() + "@2x." + file.suffix();
    QImage twice = read_picture(file.dir().filePath(name));
    return twice.size() == size * 2 ? twice : QImage();
}

/// Scaled with all pixels of the picture taken into account, onto whole pixels of the screen.
void draw_scaled(Graphics::Painter& p, const QImage& pixels, const QRectF& from, const QRectF& to) {
    auto nearest = [](QPointF point) {
        return QPoint(static_cast<int>(std::floor(point.x() + 0.5)),
                      static_cast<int>(std::floor(point.y() + 0.5)));
    };
    const QRect place(nearest(to.topLeft()), nearest(to.bottomRight()) - QPoint(1, 1));
    const QImage part = pixels.copy(from.toAlignedRect());
    p.qt.drawImage(place.topLeft(),
                   part.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

Surface::Surface(Size size, double ratio)
    : image_(std::make_unique<Image>(
          QImage(side(size.width, ratio), side(size.height, ratio), QImage::Format_ARGB32_Premultiplied),
          size, ratio)) {
    image_->pixels.fill(Qt::transparent);
}

Surface::Surface(std::unique_ptr<Image> image) : image_(std::move(image)) {}
Surface::~Surface() = default;
Size Surface::size() const { return image_->size; }
double Surface::ratio() const { return image_->ratio; }

SurfaceRef jgraphics_image_surface_create(double width, double height, double ratio) {
    return std::make_shared<Surface>(Size{width, height}, ratio);
}

SurfaceRef jgraphics_image_surface_create_from_file(const std::string& path) {
    const QString file = QString::fromStdString(path);
    QImage pixels = read_picture(file);
    if (pixels.isNull()) return nullptr;
    Size size{static_cast<double>(pixels.width()), static_cast<double>(pixels.height())};
    QImage twice = read_twice(file, pixels.size());
    auto image = std::make_unique<Surface::Image>(std::move(pixels), size, 1);
    image->twice = std::move(twice);
    return std::make_shared<Surface>(std::move(image));
}

void surface_move(Surface& surface, double dx, double dy) {
    const Surface::Image& image = surface.image();
    const int x = static_cast<int>(std::lround(dx * image.ratio)),
              y = static_cast<int>(std::lround(dy * image.ratio));
    const int width = image.width - std::abs(x), height = image.height - std::abs(y);
    if (width <= 0 || height <= 0) return;
    for (int i = 0; i < height; ++i) {
        const int row = y > 0 ? height - 1 - i : i;  // none is written before it was read
        std::memmove(image.row(row + std::max(y, 0)) + std::max(x, 0),
                     image.row(row - std::min(y, 0)) - std::min(x, 0),
                     static_cast<size_t>(width) * sizeof(QRgb));
    }
}

void surface_clear(Surface& surface) { surface.image().pixels.fill(Qt::transparent); }

void jgraphics_image_surface_draw(Graphics& g, const Surface& surface, const Rect& source,
                                  const Rect& destination) {
    Graphics::Painter& p = g.painter();
    const Surface::Image& image = surface.image();
    const bool is_picture = !image.twice.isNull(), use_twice = is_picture && p.ratio > 1;
    const QImage& pixels = use_twice ? image.twice : image.pixels;
    double ratio = use_twice ? 2 : image.ratio;
    if (pixels.width() == 1) return draw_rows(p, pixels, source, destination);
    QRectF from(source.x * ratio, source.y * ratio, source.width * ratio, source.height * ratio);
    QRectF to = p.device(destination);
    bool same_scale =
        ratio == p.ratio && source.width == destination.width && source.height == destination.height;
    if (same_scale && whole(from.x()) && whole(from.y())) {
        QSize size(static_cast<int>(std::ceil(from.width() - 1e-6)),
                   static_cast<int>(std::ceil(from.height() - 1e-6)));
        QPoint at(static_cast<int>(std::floor(to.x() + 0.5)), static_cast<int>(std::floor(to.y() + 0.5)));
        p.qt.drawImage(at, pixels, QRect(from.topLeft().toPoint(), size));
        return;
    }
    if (is_picture) return draw_scaled(p, pixels, from, to);
    p.qt.setRenderHint(QPainter::SmoothPixmapTransform,
                       pixels.height() > 1);  // a line stays as sharp as it is
    p.qt.drawImage(to, pixels, from);
}

/// Row by row: what lies in a row of pixels lies together in memory.
void jgraphics_image_surfaces_draw_widened(Graphics& g, std::span<const WidenedSurface> surfaces, int top) {
    const Graphics::Painter& p = g.painter();
    if (surfaces.empty()) return;
    const int least = p.clip.left(), most = p.clip.right() + 1;
    const int bottom = std::min(top + surfaces[0].surface->image().height, p.clip.bottom() + 1);
    for (int y = std::max(top, p.clip.top()); y < bottom; ++y) {
        QRgb* row = p.surface.row(y);
        for (const WidenedSurface& widened : surfaces) {
            const Surface::Image& image = widened.surface->image();
            const QRgb* source = image.row(y - top);
            // Up to its middle from the left, then the middle, then up to its end from the right.
            const int middle = image.width / 2, shift = widened.right - image.width;
            const int from = std::max(widened.left, least), to = std::min(widened.right, most);
            const int half = std::clamp(widened.left + middle, from, std::max(from, to));
            const int rest = std::clamp(shift + middle, half, std::max(half, to));
            for (int x = from; x < half; ++x) row[x] = source[x - widened.left];
            for (int x = half; x < rest; ++x) row[x] = source[middle];
            for (int x = rest; x < to; ++x) row[x] = source[x - shift];
        }
    }
}

std::optional<std::string> surface_write_png(const Surface& surface, const std::string& path) {
    QBuffer png;
    std::string fault = "the picture cannot be encoded";
    png.open(QIODevice::WriteOnly);
    if (surface.image().pixels.save(&png, "PNG") &&
        write_file(path, {png.data().constData(), static_cast<size_t>(png.size())}, fault))
        return {};
    return "could not write \"" + path + "\": " + fault;
}

unsigned surface_pixel(const Surface& surface, int x, int y) {
    const QImage& pixels = surface.image().pixels;
    return pixels.valid(x, y) ? pixels.pixel(x, y) : 0;
}

}  // namespace tq
