#include "app/window/hue_field.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "instance/colors.h"

namespace tq {

namespace {

constexpr double swatch_width = 30, gap = 6;  // pixels
constexpr double saturation = 0.65, luminosity = 0.6, faded = 0.35;
constexpr double large_step = 10;
constexpr int colors_in_strip = 120;
constexpr double last_part = 0.03;  // of the strip, stands for the maximum alone, which is grey

QColor color_of(double hue) {
    const Rgb rgb = hsl2rgb(hue, saturation, luminosity);
    return QColor::fromRgbF(static_cast<float>(rgb.red), static_cast<float>(rgb.green),
                            static_cast<float>(rgb.blue));
}

}  // namespace

HueField::HueField(const FieldForm& form, FieldUser user) : form_(form), user_(std::move(user)) {
    setFocusPolicy(Qt::StrongFocus);
    setToolTip("Drag, or use the arrow keys; the right end is grey");
}

/// The hue that is chosen stands before it.
QRectF HueField::strip() const { return QRectF(rect()).adjusted(swatch_width + gap, 2, -2, -2); }

void HueField::display(const Field& field) {
    setEnabled(field.enabled());
    const double hue = field.value().empty() ? 0 : field.value().front().as_double();
    if (std::exchange(shown_, hue) != hue) dragging_ = false;
    if (!dragging_) dragged_ = hue;
    update();
}

void HueField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) painter.setOpacity(faded);
    const QRectF place = strip();
    QLinearGradient hues(place.topLeft(), place.topRight());
    for (int i = 0; i <= colors_in_strip; ++i) {
        const double at = double(i) / colors_in_strip * (1 - last_part);
        hues.setColorAt(at, color_of(form_.minimum + at * (form_.maximum - form_.minimum)));
    }
    for (const double at : {1 - last_part + 0.001, 1.}) hues.setColorAt(at, color_of(form_.maximum));
    const QColor frame = palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid);
    painter.setPen(QPen(frame, hasFocus() ? 2 : 1));
    painter.setBrush(hues);
    painter.drawRoundedRect(place, 2, 2);
    painter.setBrush(color_of(dragged_));
    painter.drawRoundedRect(QRectF(1, 2, swatch_width, place.height()), 2, 2);
    const double x =
        place.left() + (dragged_ - form_.minimum) / (form_.maximum - form_.minimum) * place.width();
    painter.setPen(QPen(Qt::black, 3));
    painter.drawLine(QPointF(x, place.top()), QPointF(x, place.bottom()));
    painter.setPen(QPen(Qt::white, 1.4));
    painter.drawLine(QPointF(x, place.top()), QPointF(x, place.bottom()));
}

double HueField::hue_at(double x) const {
    const QRectF place = strip();
    const double part = std::clamp((x - place.left()) / place.width(), 0., 1.);
    if (part > 1 - last_part) return form_.maximum;
    return form_.minimum + part * (form_.maximum - form_.minimum);
}

void HueField::drag_to(double x) {
    dragged_ = hue_at(x);
    update();
}

void HueField::say(double hue) {
    if (hue != shown_) user_.does("value", {number_atom(hue)});
}

void HueField::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || event->position().x() < strip().left() - gap) return;
    dragging_ = true;
    drag_to(event->position().x());
}

void HueField::mouseMoveEvent(QMouseEvent* event) {
    if (dragging_) drag_to(event->position().x());
}

void HueField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && std::exchange(dragging_, false)) say(dragged_);
}

void HueField::keyPressEvent(QKeyEvent* event) {
    const double size = event->modifiers() & Qt::ShiftModifier ? large_step : 1;
    const struct {
        int key;
        double hue;
    } rows[] = {{Qt::Key_Left, shown_ - size * form_.step},
                {Qt::Key_Down, shown_ - size * form_.step},
                {Qt::Key_Right, shown_ + size * form_.step},
                {Qt::Key_Up, shown_ + size * form_.step},
                {Qt::Key_Home, form_.minimum},
                {Qt::Key_End, form_.maximum}};
    const auto* row = std::ranges::find(rows, event->key(), [](const auto& r) { return r.key; });
    if (row == std::end(rows)) return QWidget::keyPressEvent(event);
    say(std::clamp(row->hue, form_.minimum, form_.maximum));
}

}  // namespace tq
