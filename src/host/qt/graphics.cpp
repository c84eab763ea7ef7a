#include "host/graphics.h"

#include <QPen>
#include <algorithm>
#include <cmath>

#include "host/qt/painter.h"

namespace tq {

namespace {

/// The nearest whole pixel, halves up, so that rectangles that share an edge share it on the screen.
double nearest(double value) { return std::floor(value + 0.5); }

/// How many pixels of the screen a line of this width covers.
double thickness(double width, double ratio) { return std::max(1., nearest(width * ratio)); }

/// The first of the pixels that a line of this thickness, centred on a place, covers.
double first_pixel(double center, double pixels) { return nearest(center - pixels / 2); }

void line_along_axis(Graphics::Painter& p, QPointF a, QPointF b, double width) {
    double n = thickness(width, p.ratio);
    QRect line;
    if (a.x() == b.x()) {
        double left = first_pixel(a.x(), n);
        line = p.cut(left, nearest(std::min(a.y(), b.y())), left + n, nearest(std::max(a.y(), b.y())));
    } else {
        double top = first_pixel(a.y(), n);
        line = p.cut(nearest(std::min(a.x(), b.x())), top, nearest(std::max(a.x(), b.x())), top + n);
    }
    p.fill(line);
}

void begin_path(Graphics::Painter& p, std::optional<Rect> rectangle = {}) {
    p.only_rectangle = p.path.isEmpty() ? rectangle : std::nullopt;
}

void end_path(Graphics::Painter& p) {
    p.path = QPainterPath();
    p.only_rectangle.reset();
}

}  // namespace

QColor to_qcolor(const Rgba& color) {
    auto held = [](double v) { return static_cast<float>(std::clamp(v, 0., 1.)); };
    return QColor::fromRgbF(held(color.red), held(color.green), held(color.blue), held(color.alpha));
}

Graphics::Painter::Painter(Surface::Image& image)
    : surface(image), clip(image.pixels.rect()), qt(&image.pixels), ratio(image.ratio) {
    qt.setRenderHint(QPainter::Antialiasing);
}

QRect Graphics::Painter::cut(double left, double top, double right, double bottom) const {
    auto held = [](double v, int least, int most) {
        return v > least ? static_cast<int>(std::min<double>(v, most)) : least;
    };
    const int l = held(left, clip.left(), clip.right() + 1), r = held(right, clip.left(), clip.right() + 1);
    const int t = held(top, clip.top(), clip.bottom() + 1), b = held(bottom, clip.top(), clip.bottom() + 1);
    return {l, t, r - l, b - t};
}

QRect Graphics::Painter::snapped(const Rect& rect) const {
    if (!(rect.width > 0 && rect.height > 0)) return {};
    QPointF from = device(Point{rect.x, rect.y}),
            to = device(Point{rect.x + rect.width, rect.y + rect.height});
    double left = nearest(from.x()), top = nearest(from.y());
    return cut(left, top, std::max(nearest(to.x()), left + 1), std::max(nearest(to.y()), top + 1));
}

Graphics::Graphics(Surface& surface) : painter_(std::make_unique<Painter>(surface.image())) {}
Graphics::Graphics(Graphics&&) noexcept = default;
Graphics::~Graphics() = default;
double Graphics::ratio() const { return painter_->ratio; }
bool Graphics::moves_exactly() const { return painter_->moves_exactly; }

Rect Graphics::clip() const {
    const Painter& p = *painter_;
    return {p.clip.x() / p.ratio - p.offset.x, p.clip.y() / p.ratio - p.offset.y, p.clip.width() / p.ratio,
            p.clip.height() / p.ratio};
}

void jgraphics_set_source_jrgba(Graphics& g, const Rgba& color) {
    g.painter().color = to_qcolor(color);
    g.painter().gradient.reset();
}

void jgraphics_set_source_rgba(Graphics& g, double red, double green, double blue, double alpha) {
    jgraphics_set_source_jrgba(g, {red, green, blue, alpha});
}

void jgraphics_set_source(Graphics& g, const LinearPattern& pattern) {
    Graphics::Painter& p = g.painter();
    QLinearGradient gradient(p.device(pattern.from), p.device(pattern.to));
    gradient.setColorAt(0, to_qcolor(pattern.start));
    gradient.setColorAt(1, to_qcolor(pattern.end));
    p.gradient = gradient;
}

void jgraphics_set_line_width(Graphics& g, double width) { g.painter().line_width = width; }

void jgraphics_translate(Graphics& g, double dx, double dy) {
    g.painter().offset.x += dx;
    g.painter().offset.y += dy;
}

void jgraphics_clip(Graphics& g, const Rect& rect) {
    Graphics::Painter& p = g.painter();
    p.clip = p.snapped(rect);
    p.qt.setClipRect(p.clip);
}

void jgraphics_rectangle_fill_fast(Graphics& g, const Rect& rect) {
    Graphics::Painter& p = g.painter();
    p.fill(p.snapped(rect));
}

void jgraphics_rectangle_clear(Graphics& g, const Rect& rect) {
    Graphics::Painter& p = g.painter();
    const QRect area = p.snapped(rect);
    for (int y = area.top(); y <= area.bottom(); ++y)
        std::fill_n(p.surface.row(y) + area.left(), area.width(), QRgb{0});
}

void jgraphics_rectangle_draw_fast(Graphics& g, const Rect& rect, double width) {
    Graphics::Painter& p = g.painter();
    if (!(rect.width > 0 && rect.height > 0)) return;
    QPointF from = p.device(Point{rect.x, rect.y}),
            to = p.device(Point{rect.x + rect.width, rect.y + rect.height});
    double left = nearest(from.x()), top = nearest(from.y());
    double right = std::max(nearest(to.x()), left + 1), bottom = std::max(nearest(to.y()), top + 1);
    double n = std::min({thickness(width, p.ratio), right - left, bottom - top});
    p.fill(p.cut(left, top, right, top + n));
    if (bottom - top <= n) return;
    p.fill(p.cut(left, bottom - n, right, bottom));
    p.fill(p.cut(left, top + n, left + n, bottom - n));
    if (right - left > n) p.fill(p.cut(right - n, top + n, right, bottom - n));
}

void jgraphics_line_draw_fast(Graphics& g, Point from, Point to, double width) {
    Graphics::Painter& p = g.painter();
    QPointF a = p.device(from), b = p.device(to);
    if (a.x() == b.x() || a.y() == b.y()) return line_along_axis(p, a, b, width);
    p.moves_exactly = false;
    p.qt.setPen(QPen(p.color, std::max(width * p.ratio, 1.), Qt::SolidLine, Qt::FlatCap));
    p.qt.drawLine(a, b);
}

void jgraphics_move_to(Graphics& g, double x, double y) {
    begin_path(g.painter());
    g.painter().path.moveTo(g.painter().device(Point{x, y}));
}

void jgraphics_line_to(Graphics& g, double x, double y) {
    g.painter().path.lineTo(g.painter().device(Point{x, y}));
}

void jgraphics_rectangle(Graphics& g, const Rect& rect) {
    begin_path(g.painter(), rect);
    g.painter().path.addRect(g.painter().device(rect));
}

void jgraphics_rectangle_rounded(Graphics& g, const Rect& rect, double ovalwidth, double ovalheight) {
    Graphics::Painter& p = g.painter();
    begin_path(p);
    p.path.addRoundedRect(p.device(rect), ovalwidth / 2 * p.ratio, ovalheight / 2 * p.ratio);
}

void jgraphics_ellipse(Graphics& g, const Rect& rect) {
    begin_path(g.painter());
    g.painter().path.addEllipse(g.painter().device(rect));
}

void jgraphics_fill(Graphics& g) {
    Graphics::Painter& p = g.painter();
    if (p.only_rectangle) {
        p.qt.fillRect(p.snapped(*p.only_rectangle), p.brush());
    } else {
        p.moves_exactly = false;
        p.qt.fillPath(p.path, p.brush());
    }
    end_path(p);
}

void jgraphics_stroke(Graphics& g) {
    Graphics::Painter& p = g.painter();
    if (p.only_rectangle) {
        jgraphics_rectangle_draw_fast(g, *p.only_rectangle, p.line_width);
    } else {
        p.moves_exactly = false;
        p.qt.strokePath(p.path,
                        QPen(p.color, p.line_width * p.ratio, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    }
    end_path(p);
}

}  // namespace tq
