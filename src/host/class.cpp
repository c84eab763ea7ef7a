#include "host/class.h"

#include <fmt/printf.h>

#include <algorithm>

#include "host/host.h"

namespace tq {

const Method* Class::find_method(Symbol name) const {
    auto found = method_index_.find(name);
    return found == method_index_.end() ? nullptr : &methods_[found->second];
}

const Attribute* Class::find_attribute(Symbol name) const {
    auto found = attribute_index_.find(name);
    return found == attribute_index_.end() ? nullptr : &attributes_[found->second];
}

void Class::add(Method method) {
    method_index_.emplace(method.name, methods_.size());
    methods_.push_back(std::move(method));
}

Attribute& Class::add(Attribute attribute) {
    attribute_index_.emplace(attribute.name, attributes_.size());
    return attributes_.emplace_back(std::move(attribute));
}

namespace {

/// The values to store: as many as the type has, converted and clipped. None when the atoms do not fit.
std::optional<Atoms> fitting_values(const Attribute& attribute, AtomSpan atoms) {
    if (attribute.type == Attribute::Type::Name)
        return !atoms.empty() && atoms[0].is_symbol() ? std::optional(Atoms{atoms[0]}) : std::nullopt;
    bool rgba = attribute.type == Attribute::Type::Rgba;
    if (rgba ? (atoms.size() < 3 || atoms.size() > 4) : atoms.empty()) return {};
    if (!std::all_of(atoms.begin(), atoms.end(), [](const Atom& atom) { return atom.is_number(); }))
        return {};

    Atoms values(atoms.begin(), rgba ? atoms.end() : atoms.begin() + 1);
    if (values.size() == 3) values.emplace_back(1.0);
    auto clip = rgba ? std::optional(std::pair(0.0, 1.0)) : attribute.clip;
    for (Atom& value : values) {
        if (attribute.type == Attribute::Type::Char || attribute.type == Attribute::Type::Long)
            value = value.as_long();
        if (!clip) continue;
        if (value.is_int())
            value =
                std::clamp(value.as_long(), static_cast<long>(clip->first), static_cast<long>(clip->second));
        else
            value = std::clamp(value.as_double(), clip->first, clip->second);
    }
    return values;
}

bool answer_attribute_query(Object& object, std::string_view message) {
    if (!message.starts_with("get")) return false;
    const Attribute* attribute = object.object_class().find_attribute(gensym(message.substr(3)));
    if (!attribute) return false;
    object.host().patch.dumpout(object, attribute->name, attribute->read(object));
    return true;
}

}  // namespace

std::optional<std::string> object_attr_setvalueof(Object& object, const Attribute& attribute,
                                                  AtomSpan atoms) {
    std::optional<Atoms> values = fitting_values(attribute, atoms);
    if (!values) return fmt::sprintf("bad arguments for attribute \"%s\"", attribute.name.text());
    attribute.write(object, *values);
    static const Symbol attr_modified = gensym("attr_modified");
    object.notify({&object, attr_modified, attribute.name});
    object_notify(object, attr_modified, attribute.name);
    return {};
}

void object_attr_set_defaults(Object& object) {
    for (const Attribute& attribute : object.object_class().attributes())
        attribute.write(object, fitting_values(attribute, atom_setparse(attribute.default_value)).value());
}

bool object_method_typed(Object& object, Symbol message, AtomSpan arguments) {
    const Class& c = object.object_class();
    const Method* method = c.find_method(message);
    static const Symbol int_message = gensym("int"), float_message = gensym("float");
    if (!method && message == float_message) method = c.find_method(int_message);  // the host truncates
    if (method) {
        if (method->call(object, message, arguments)) return true;
        object_error(object, fmt::sprintf("bad arguments for message \"%s\"", message.text()));
        return false;
    }
    if (const Attribute* attribute = c.find_attribute(message)) {
        std::optional<std::string> fault = object_attr_setvalueof(object, *attribute, arguments);
        if (fault)
            object_error(object, *fault);
        else if (attribute->paint)
            object.host().patch.redraw(object);
        return !fault;
    }
    if (answer_attribute_query(object, message.text()) || object.anything(message, arguments)) return true;
    object_error(object, fmt::sprintf("doesn't understand \"%s\"", message.text()));
    return false;
}

}  // namespace tq
