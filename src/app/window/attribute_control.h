// Controls for attributes, one a style.
#pragma once

#include <functional>

#include "host/attribute.h"

class QWidget;

namespace tq {

struct AttributeControl {
    QWidget* widget;
    /// Shows values, and says nothing.
    std::function<void(const Atoms&)> display;
};

/// A control that tells `set` each value that its user gives the attribute.
AttributeControl make_attribute_control(const Attribute& attribute, const std::function<void(Atoms)>& set);

}  // namespace tq
