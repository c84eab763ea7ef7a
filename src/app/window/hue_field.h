// A strip of hues.
#pragma once

#include <QWidget>

#include "app/window/field_control.h"

namespace tq {

/// Dragged over, it shows the hue, and says it when the button is released.
class HueField final : public QWidget, public FieldControl {
 public:
    HueField(const FieldForm& form, FieldUser user);
    QWidget& widget() override { return *this; }
    void display(const Field& field) override;

 protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

 private:
    QRectF strip() const;
    double hue_at(double x) const;
    void drag_to(double x);
    void say(double hue);

    FieldForm form_;
    FieldUser user_;
    double shown_ = 0, dragged_ = 0;
    bool dragging_ = false;
};

}  // namespace tq
