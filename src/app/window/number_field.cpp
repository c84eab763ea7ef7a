#include "app/window/number_field.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr double drag_threshold = 4;  // pixels
constexpr double large_step = 10;     // steps, with Shift
constexpr int notch = 120;            // eighths of a degree
constexpr double least_limit = -1e12, most_limit = 1e12;
constexpr int unit_margin = 6;  // pixels

double size_of_step(Qt::KeyboardModifiers held) { return held & Qt::ShiftModifier ? large_step : 1; }

QString limits_of(const FieldForm& form) {
    const QString least = QString::fromStdString(number_text(number_atom(form.minimum))),
                  most = QString::fromStdString(number_text(number_atom(form.maximum))),
                  unit = form.unit.empty() ? "" : " " + QString::fromStdString(form.unit);
    if (form.minimum > least_limit && form.maximum < most_limit) return least + " to " + most + unit;
    if (form.minimum > least_limit) return "at least " + least + unit;
    return form.maximum < most_limit ? "at most " + most + unit : "";
}

}  // namespace

NumberField::NumberField(const FieldForm& form, const FieldUser& user)
    : LineField(user), form_(form), unit_(new QLabel(QString::fromStdString(form.unit), this)) {
    const QString limits = limits_of(form);
    setToolTip("Drag up or down, or use the arrow keys; with Shift ten times as far" +
               (limits.isEmpty() ? "" : "\n" + limits));
    unit_->setAttribute(Qt::WA_TransparentForMouseEvents);
    unit_->setForegroundRole(QPalette::PlaceholderText);
    unit_->adjustSize();
    if (!form.unit.empty()) setTextMargins(0, 0, unit_->width() + unit_margin, 0);
}

void NumberField::resizeEvent(QResizeEvent* event) {
    LineField::resizeEvent(event);
    unit_->move(width() - unit_->width() - unit_margin, (height() - unit_->height()) / 2);
}

QString NumberField::text_to_show(const Field& field) const {
    return field.value().empty() ? QString() : QString::fromStdString(number_text(field.value().front()));
}

/// What is no number is taken back.
void NumberField::say(const QString& text) {
    if (const std::optional<double> number = number_of(text.toStdString()))
        user().does("value", {number_atom(*number)});
}

/// Sums of decimal steps stay decimal.
double NumberField::stepped(double from, double steps) const {
    constexpr double finest = 1e6;
    const double to = std::round((from + steps * form_.step) * finest) / finest;
    return std::clamp(to, form_.minimum, form_.maximum);
}

double NumberField::value() const { return number_of(shown().toStdString()).value_or(0); }

void NumberField::step(double steps) {
    finish();
    const double to = stepped(value(), steps);
    if (to != value()) user().does("value", {number_atom(to)});
}

/// While it is dragged, Escape is not the window's.
bool NumberField::event(QEvent* event) {
    const bool escapes =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (!escapes || !dragging_) return LineField::event(event);
    event->accept();
    return true;
}

void NumberField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && dragging_) {
        dragging_ = false;
        put_back_ = true;
        setCursor(Qt::IBeamCursor);
        return user().put_back();
    }
    const bool up = event->key() == Qt::Key_Up;
    if (up || event->key() == Qt::Key_Down) return step((up ? 1 : -1) * size_of_step(event->modifiers()));
    LineField::keyPressEvent(event);
}

void NumberField::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (dragging_) return;
    // Some platforms turn the wheel sideways while Shift is held.
    turned_ += event->angleDelta().y() ? event->angleDelta().y() : event->angleDelta().x();
    const int steps = turned_ / notch;
    turned_ -= steps * notch;
    if (steps) step(steps * size_of_step(event->modifiers()));
}

void NumberField::mousePressEvent(QMouseEvent* event) {
    LineField::mousePressEvent(event);
    pressed_y_ = dragged_y_ = event->position().y();
    put_back_ = false;
}

/// What is not dragged far up or down selects text.
void NumberField::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return LineField::mouseMoveEvent(event);
    if (put_back_) return;
    const double y = event->position().y();
    if (!dragging_ && std::abs(y - pressed_y_) < drag_threshold) return LineField::mouseMoveEvent(event);
    if (!dragging_) {
        finish();
        deselect();
        dragging_ = true;
        dragged_ = value();
        setCursor(Qt::SizeVerCursor);
        user().does("mousedown", {});
    }
    const double to = stepped(dragged_, (dragged_y_ - y) * size_of_step(event->modifiers()));
    dragged_y_ = y;
    if (to == dragged_) return;
    dragged_ = to;
    user().does("value", {number_atom(to)});
}

void NumberField::mouseReleaseEvent(QMouseEvent* event) {
    LineField::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) end_drag();
}

void NumberField::hideEvent(QHideEvent* event) {
    LineField::hideEvent(event);
    end_drag();
}

void NumberField::end_drag() {
    if (!std::exchange(dragging_, false)) return;
    setCursor(Qt::IBeamCursor);
    user().does("mouseup", {});
}

}  // namespace tq
