// Classes: methods that check and convert their arguments, and attributes.
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "host/attribute.h"
#include "host/object.h"

namespace tq {

/// A symbol argument that may be left out; the empty symbol then.
struct OptionalSymbol {
    Symbol symbol;
};

struct Method {
    Symbol name;
    /// Runs the handler; false when the arguments do not fit its signature.
    std::function<bool(Object&, Symbol message, AtomSpan)> call;
};

class Class {
 public:
    explicit Class(std::string_view name) : name_(gensym(name)) {}
    Symbol name() const { return name_; }
    const std::vector<Method>& methods() const { return methods_; }
    const std::vector<Attribute>& attributes() const { return attributes_; }
    const Method* find_method(Symbol name) const;
    const Attribute* find_attribute(Symbol name) const;

    void add(Method method);
    Attribute& add(Attribute attribute);

 private:
    Symbol name_;
    std::vector<Method> methods_;
    std::vector<Attribute> attributes_;
    std::unordered_map<Symbol, size_t> method_index_, attribute_index_;
};

/// Takes the next argument of the given type from `atoms`; none when it is missing or of another kind.
/// Ints and floats stand for each other (a float is truncated).
template <typename T>
std::optional<T> take_argument(AtomSpan& atoms) {
    if constexpr (std::same_as<T, OptionalSymbol>) {
        if (atoms.empty()) return OptionalSymbol{};
    } else if (atoms.empty()) {
        return {};
    }
    Atom atom = atoms.front();
    if constexpr (std::same_as<T, Symbol> || std::same_as<T, OptionalSymbol>) {
        if (!atom.is_symbol()) return {};
        atoms = atoms.subspan(1);
        return T{atom.as_symbol()};
    } else {
        static_assert(std::same_as<T, long> || std::same_as<T, double>);
        if (!atom.is_number()) return {};
        atoms = atoms.subspan(1);
        if constexpr (std::same_as<T, long>)
            return atom.as_long();
        else
            return atom.as_double();
    }
}

/// Adds a method whose signature is that of the handler: long, double, Symbol and OptionalSymbol arguments.
/// Atoms beyond the signature are ignored.
template <std::derived_from<Object> T, typename... Arguments>
void class_addmethod(Class& c, std::string_view name, void (*handler)(T&, Arguments...)) {
    c.add({gensym(name), [handler](Object& object, Symbol, [[maybe_unused]] AtomSpan atoms) {
               std::tuple<std::optional<Arguments>...> taken{take_argument<Arguments>(atoms)...};
               return std::apply(
                   [&](const auto&... argument) {
                       if (!(argument.has_value() && ...)) return false;
                       handler(static_cast<T&>(object), *argument...);
                       return true;
                   },
                   taken);
           }});
}

/// Adds a method that takes the raw atoms and checks them itself.
template <std::derived_from<Object> T>
void class_addmethod(Class& c, std::string_view name, void (*handler)(T&, Symbol message, AtomSpan)) {
    c.add({gensym(name), [handler](Object& object, Symbol message, AtomSpan atoms) {
               handler(static_cast<T&>(object), message, atoms);
               return true;
           }});
}

/// Adds an attribute that is a field of T or of a base of it: char (a bool), long, double, Rgba or Symbol.
template <std::derived_from<Object> T, typename Owner, typename Field>
Attribute& class_addattr(Class& c, std::string_view name, Field Owner::*field) {
    Attribute attribute;
    attribute.name = gensym(name);
    if constexpr (std::same_as<Field, Rgba>) {
        attribute.type = Attribute::Type::Rgba;
        attribute.write = [field](Object& object, AtomSpan a) {
            static_cast<T&>(object).*
                field = {a[0].as_double(), a[1].as_double(), a[2].as_double(), a[3].as_double()};
        };
        attribute.read = [field](const Object& object) {
            const Rgba& color = static_cast<const T&>(object).*field;
            return Atoms{color.red, color.green, color.blue, color.alpha};
        };
    } else if constexpr (std::same_as<Field, Symbol>) {
        attribute.type = Attribute::Type::Name;
        attribute.write = [field](Object& object, AtomSpan a) {
            static_cast<T&>(object).*field = a[0].as_symbol();
        };
        attribute.read = [field](const Object& object) {
            return Atoms{static_cast<const T&>(object).*field};
        };
    } else if constexpr (std::same_as<Field, double>) {
        attribute.type = Attribute::Type::Float;
        attribute.write = [field](Object& object, AtomSpan a) {
            static_cast<T&>(object).*field = a[0].as_double();
        };
        attribute.read = [field](const Object& object) {
            return Atoms{static_cast<const T&>(object).*field};
        };
    } else {
        attribute.type = std::same_as<Field, long> ? Attribute::Type::Long : Attribute::Type::Char;
        attribute.write = [field](Object& object, AtomSpan a) {
            static_cast<T&>(object).*field = static_cast<Field>(a[0].as_long());
        };
        attribute.read = [field](const Object& object) {
            return Atoms{Atom(static_cast<long>(static_cast<const T&>(object).*field))};
        };
    }
    return c.add(std::move(attribute));
}

/// Gives every attribute of the object's class its default.
void object_attr_set_defaults(Object& object);

}  // namespace tq
