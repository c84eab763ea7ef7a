// The play position in the bar: shown, and typed.
#pragma once

#include <QWidget>
#include <functional>

#include "app/window/position_text.h"

class QLineEdit;
class QToolButton;

namespace tq {

/// A text is said on Return, or when the field is left; Escape takes back what was typed. What says no
/// position says nothing. A click on the unit shows the next face.
class PositionField : public QWidget {
 public:
    /// The bars are those of this meter.
    explicit PositionField(const Meter& meter);
    void show_position(double ms);
    /// A position in ms that was typed.
    std::function<void(double)> moved = [](double) {};
    QLineEdit& line() { return *line_; }
    TimeFace face() const { return face_; }
    void show_face(TimeFace face);
    /// What was typed, and not yet said, is forgotten.
    void take_back();

 private:
    void say();
    void turn();
    void show_text();

    const Meter& meter_;
    TimeFace face_ = TimeFace::MinutesSeconds;
    double ms_ = 0;
    QLineEdit* line_;
    QToolButton* unit_;
};

}  // namespace tq
