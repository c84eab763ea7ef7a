#include "app/window/box_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "app/window/keys.h"
#include "app/window/wheel.h"
#include "host/graphics.h"
#include "host/qt/painter.h"
#include "view/draw.h"

namespace tq {

namespace {

constexpr int least_width = 200, least_height = 240;

}  // namespace

BoxWidget::BoxWidget(Session& session, SessionTimer& timer) : session_(session), timer_(timer) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(least_width, least_height);
    session_.listen(*this);
}

void BoxWidget::redraw() {
    stale_ = true;
    update();
}

void BoxWidget::paint_box() {
    const Size size{session_.box().width, session_.box().height};
    const double ratio = devicePixelRatioF();
    if (!picture_ || picture_->size() != size || picture_->ratio() != ratio)
        picture_ = jgraphics_image_surface_create(size.width, size.height, ratio);
    stale_ = false;  // before painting, which may ask for another paint
    Graphics g(*picture_);
    prseq_paint(session_.box(), g);
}

void BoxWidget::paintEvent(QPaintEvent*) {
    if (stale_ || !picture_ || picture_->ratio() != devicePixelRatioF()) {
        paint_box();
        painted();
    }
    QPainter painter(this);
    painter.scale(1 / picture_->ratio(), 1 / picture_->ratio());
    painter.drawImage(0, 0, picture_->image().pixels);
}

void BoxWidget::resizeEvent(QResizeEvent*) {
    const Size size{double(width()), double(height())};
    timer_.act([this, size] { session_.call(SizeCall{size.width, size.height}); });
    redraw();
}

void BoxWidget::mouse(MouseCall::Kind kind, const QMouseEvent& event) {
    // While dragging, no button changed: the one that is held counts.
    const bool right = event.button() == Qt::RightButton || event.buttons() == Qt::RightButton;
    const MouseCall call{kind, event.position().x(), event.position().y(), right,
                         modifiers_of(event.modifiers())};
    timer_.act([this, call] { session_.call(call); });
}

void BoxWidget::mouseMoveEvent(QMouseEvent* event) {
    const bool dragged = event->buttons() & (Qt::LeftButton | Qt::RightButton);
    mouse(dragged ? MouseCall::Kind::Drag : MouseCall::Kind::Move, *event);
}

void BoxWidget::leaveEvent(QEvent*) {
    const QPoint at = mapFromGlobal(QCursor::pos());
    const MouseCall call{.kind = MouseCall::Kind::Leave, .x = double(at.x()), .y = double(at.y())};
    timer_.act([this, call] { session_.call(call); });
}

/// The second press of a double click is a press too.
void BoxWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mouse(MouseCall::Kind::Down, *event);
    mouse(MouseCall::Kind::Double, *event);
}

void BoxWidget::wheelEvent(QWheelEvent* event) {
    const bool sideways = event->modifiers() & Qt::ShiftModifier;
    const WheelDelta delta =
        wheel_delta(event->angleDelta(), event->pixelDelta(), sideways, session_.box().maindisplay);
    const Point at{event->position().x(), event->position().y()};
    timer_.act([this, at, delta] { session_.call(WheelCall{at.x, at.y, delta.dx, delta.dy}); });
    event->accept();
}

void BoxWidget::keyPressEvent(QKeyEvent* event) {
    const std::optional<KeyPress> key = key_press(*event);
    if (!key) return QWidget::keyPressEvent(event);
    timer_.act([this, key] { session_.call(KeyCall{key->code, key->modifiers}); });
}

void BoxWidget::set_focus(bool focus) {
    timer_.act([this, focus] { session_.call(FocusCall{focus}); });
}

}  // namespace tq
