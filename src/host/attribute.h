// Attributes of a class: named fields of the object with a default, limits and what an inspector shows.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "host/atom.h"
#include "host/color.h"

namespace tq {

class Object;

struct Attribute {
    enum class Type { Char, Long, Float, Rgba, Name };

    Symbol name;
    Type type = Type::Long;
    std::string label, category, style;
    std::string default_value;  ///< in message text, as registered
    std::optional<std::pair<double, double>> clip;
    std::vector<std::string> enums;  ///< what the values 0, 1, … are called
    bool save = true;
    bool paint = false;  ///< the box is redrawn after a change

    std::function<void(Object&, AtomSpan)> write;  ///< of values that were converted and clipped
    std::function<Atoms(const Object&)> read;
};

/// Sets an attribute from atoms: checked, converted, clipped; tells the watchers "attr_modified" with the
/// attribute's name. Nothing is changed, and the reason is returned, when the atoms do not fit.
std::optional<std::string> object_attr_setvalueof(Object& object, const Attribute& attribute, AtomSpan atoms);

}  // namespace tq
