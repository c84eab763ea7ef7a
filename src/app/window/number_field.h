// A number that is typed, dragged up and down, or stepped with the arrow keys and the wheel.
#pragma once

#include "app/window/text_field.h"

class QLabel;

namespace tq {

class NumberField final : public LineField {
 public:
    NumberField(const FieldForm& form, const FieldUser& user);

 protected:
    QString text_to_show(const Field& field) const override;
    void say(const QString& text) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    double stepped(double from, double steps) const;
    double value() const;
    void step(double steps);
    void end_drag();

    FieldForm form_;
    QLabel* unit_;
    double pressed_y_ = 0, dragged_y_ = 0;
    double dragged_ = 0;                        ///< the value that it is dragged to
    bool dragging_ = false, put_back_ = false;  ///< the button is still held when it was put back
    int turned_ = 0;                            ///< of the wheel, less than a step
};

}  // namespace tq
