// The controls in the windows of the inspectors: one class a kind of field.
#pragma once

#include <functional>

#include "host/field.h"

class QWidget;

namespace tq {

/// Where a control says what a user does.
struct FieldUser {
    /// A kind of change of Field::modify().
    std::function<void(const char* change, const Atoms& atoms)> does;
    /// What the fields are about at the moment: what was typed for one thing is not meant for another.
    std::function<const void*()> subject;
    /// What is being dragged goes back to where it was.
    std::function<void()> put_back;
};

/// One control. It belongs to the widget that it stands on.
class FieldControl {
 public:
    FieldControl() = default;
    virtual ~FieldControl() = default;
    FieldControl(const FieldControl&) = delete;
    FieldControl& operator=(const FieldControl&) = delete;

    virtual QWidget& widget() = 0;
    /// Shows what has become of the field, and says nothing. What is being typed stays, unless the field has
    /// another value now.
    virtual void display(const Field& field) = 0;
    /// Says what was typed, as leaving the control does.
    virtual void finish() {}
};

/// The control for a field of this form; `height` in pixels.
FieldControl* make_control(const FieldForm& form, double height, const FieldUser& user);

/// Whole numbers are exact.
Atom number_atom(double value);
/// As short as it can be without being another number.
std::string number_text(const Atom& number);
/// The number that a text is, with a point or a comma; none for other texts.
std::optional<double> number_of(const std::string& text);

}  // namespace tq
