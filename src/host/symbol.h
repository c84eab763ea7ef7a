// Interned names. Two symbols are the same name exactly when they are the same pointer.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tq {

/// A name that is compared by identity. The default symbol is the empty one: "no value".
class Symbol {
 public:
    Symbol();
    const std::string& text() const { return *text_; }
    const char* c_str() const { return text_->c_str(); }
    bool empty() const { return text_->empty(); }

    friend bool operator==(Symbol a, Symbol b) { return a.text_ == b.text_; }

 private:
    friend Symbol gensym(std::string_view text);
    friend struct std::hash<Symbol>;
    explicit Symbol(const std::string* text) : text_(text) {}
    const std::string* text_;  // in the symbol table, for as long as the program runs
};

/// The symbol of a text; made when the text is new. All text of messages and documents comes through here,
/// and what is not UTF-8 is made so (valid_utf8()). Main thread only.
Symbol gensym(std::string_view text);

}  // namespace tq

template <>
struct std::hash<tq::Symbol> {
    size_t operator()(tq::Symbol symbol) const noexcept { return std::hash<const void*>()(symbol.text_); }
};
