#include "app/window/box_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "app/window/keys.h"
#include "app/window/pixmap.h"
#include "app/window/wheel.h"
#include "host/graphics.h"
#include "host/qt/painter.h"
#include "view/draw.h"

namespace tq {

namespace {

constexpr int least_width = 200, least_height = 240;
constexpr qint64 shortest_frame = 8;  // ms

Qt::CursorShape shape_of(long host_shape) {
    if (host_shape == host_cursor_copying) return Qt::DragCopyCursor;
    return host_shape == host_cursor_dragging_hand ? Qt::ClosedHandCursor : Qt::ArrowCursor;
}

}  // namespace

BoxWidget::BoxWidget(Session& session, SessionTimer& timer)
    : session_(session), timer_(timer), mouse_mode_(session.box().maindisplay.mousemode) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(least_width, least_height);
    session_.listen(*this);
}

/// What comes within a frame is painted together.
void BoxWidget::redraw() {
    stale_ = true;
    if (std::exchange(frame_due_, true)) return;
    const qint64 since = last_frame_.isValid() ? last_frame_.elapsed() : shortest_frame;
    QTimer::singleShot(static_cast<int>(std::clamp<qint64>(shortest_frame - since, 0, shortest_frame)), this,
                       [this] {
                           frame_due_ = false;
                           if (stale_) bring_up_to_date();
                           follow_mouse_mode();
                       });
}

void BoxWidget::cursor(const MouseCursor& cursor) {
    cursor_ = cursor;
    show_cursor();
}

void BoxWidget::show_cursor() {
    if (!cursor_.image) return setCursor(shape_of(cursor_.shape));
    setCursor(QCursor(pixmap_of(*cursor_.image, devicePixelRatioF()), static_cast<int>(cursor_.hotspot.x),
                      static_cast<int>(cursor_.hotspot.y)));
}

/// A mode that was not chosen with the mouse shows in the cursor at once: the box is told where the pointer
/// is.
void BoxWidget::follow_mouse_mode() {
    const MouseMode mode = session_.box().maindisplay.mousemode;
    if (std::exchange(mouse_mode_, mode) == mode || QApplication::mouseButtons()) return;
    if (QApplication::widgetAt(QCursor::pos()) == this) tell_pointer(mapFromGlobal(QCursor::pos()));
}

/// Only where the picture is another one now does the screen have to show it again.
void BoxWidget::bring_up_to_date() {
    if (!isVisible()) return update();
    stale_ = false;  // before painting, which may ask for another paint
    last_frame_.start();
    for (const Rect& place : prseq_paint(session_.box(), picture_, devicePixelRatioF()))
        update(QRectF(place.x, place.y, place.width, place.height).toAlignedRect());
    painted();
}

bool BoxWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), tip_at(help->pos()), this);  // an empty one hides it
    return true;
}

void BoxWidget::paintEvent(QPaintEvent* event) {
    const bool other_screen = picture_.surface() && picture_.surface()->ratio() != devicePixelRatioF();
    if (other_screen) show_cursor();
    if (stale_ || !picture_.surface() || other_screen) bring_up_to_date();
    const Surface* surface = picture_.surface();
    if (!surface) return;
    const double ratio = surface->ratio();
    QPainter painter(this);
    painter.scale(1 / ratio, 1 / ratio);
    const QRectF area(event->rect());
    const QRect pixels = QRectF(area.topLeft() * ratio, area.size() * ratio).toAlignedRect();
    painter.drawImage(pixels.topLeft(), surface->image().pixels, pixels);
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
                         mouse_modifiers_of(event.modifiers())};
    timer_.act([this, call] { session_.call(call); });
}

void BoxWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && menu_at(event->position().toPoint())) return;
    mouse(MouseCall::Kind::Down, *event);
}

void BoxWidget::mouseMoveEvent(QMouseEvent* event) {
    const bool dragged = event->buttons() & (Qt::LeftButton | Qt::RightButton);
    mouse(dragged ? MouseCall::Kind::Drag : MouseCall::Kind::Move, *event);
    pointed(event->position().toPoint());
}

/// Where it is without having moved there.
void BoxWidget::tell_pointer(QPoint at) {
    const MouseCall call{.kind = MouseCall::Kind::Move,
                         .x = double(at.x()),
                         .y = double(at.y()),
                         .modifiers = mouse_modifiers_of(QApplication::keyboardModifiers())};
    timer_.act([this, call] { session_.call(call); });
}

/// It need not move for that: a window that covered the box may have gone.
void BoxWidget::enterEvent(QEnterEvent* event) {
    if (!event->buttons()) tell_pointer(event->position().toPoint());
}

void BoxWidget::leaveEvent(QEvent*) {
    const QPoint at = mapFromGlobal(QCursor::pos());
    const MouseCall call{.kind = MouseCall::Kind::Leave, .x = double(at.x()), .y = double(at.y())};
    timer_.act([this, call] { session_.call(call); });
    pointed({});
}

/// The second press of a double click is a press too.
void BoxWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mouse(MouseCall::Kind::Down, *event);
    mouse(MouseCall::Kind::Double, *event);
}

void BoxWidget::zoom(const QWheelEvent& event) {
    const bool upright = event.modifiers() & Qt::ShiftModifier;
    const WheelZoom factors = wheel_zoom(event.angleDelta(), event.pixelDelta(), upright);
    const ZoomCall call{event.position().x(), event.position().y(), factors.horizontal, factors.vertical};
    if (call.horizontal != 1 || call.vertical != 1) timer_.act([this, call] { session_.call(call); });
}

void BoxWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (event->modifiers() & Qt::ControlModifier) return zoom(*event);
    const bool sideways = event->modifiers() & Qt::ShiftModifier;
    const WheelDelta delta =
        wheel_delta(event->angleDelta(), event->pixelDelta(), sideways, session_.box().maindisplay);
    const Point at{event->position().x(), event->position().y()};
    timer_.act([this, at, delta] { session_.call(WheelCall{at.x, at.y, delta.dx, delta.dy}); });
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
