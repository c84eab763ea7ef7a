// The box on the screen.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "app/patch/session.h"
#include "app/window/session_timer.h"
#include "host/layers.h"
#include "host/mouse_cursor.h"

namespace tq {

/// Shows a session's box at the widget's size and the screen's pixel ratio, and hands it what a person does
/// to it.
class BoxWidget : public QWidget, private SessionListener {
 public:
    BoxWidget(Session& session, SessionTimer& timer);
    using QWidget::cursor;
    /// Called after every paint of the box.
    std::function<void()> painted = [] {};
    /// Shows the menu of what is at a point, where there is one beside the box's own: then the press is no
    /// press of the box.
    std::function<bool(QPoint at)> menu_at = [](QPoint) { return false; };
    /// What helps at a point; empty: nothing.
    std::function<QString(QPoint at)> tip_at = [](QPoint) { return QString(); };
    /// The pointer is there, or nowhere any more.
    std::function<void(std::optional<QPoint> at)> pointed = [](auto) {};

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override { mouse(MouseCall::Kind::Up, *event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent*) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent*) override { set_focus(true); }
    void focusOutEvent(QFocusEvent*) override { set_focus(false); }

 private:
    void redraw() override;
    void cursor(const MouseCursor& cursor) override;
    void show_cursor();
    void follow_mouse_mode();
    void bring_up_to_date();
    void set_focus(bool focus);
    void tell_pointer(QPoint at);
    void zoom(const QWheelEvent& event);
    void mouse(MouseCall::Kind kind, const QMouseEvent& event);

    Session& session_;
    SessionTimer& timer_;
    BoxPicture picture_;
    MouseCursor cursor_;
    MouseMode mouse_mode_;  ///< that the box's cursor shows
    bool stale_ = true;
    bool frame_due_ = false;
    QElapsedTimer last_frame_;
};

}  // namespace tq
