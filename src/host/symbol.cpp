#include "host/symbol.h"

#include <deque>
#include <unordered_map>

#include "host/utf8.h"

namespace tq {

namespace {

struct SymbolTable {
    std::deque<std::string> texts;  // a deque never moves what it holds
    std::unordered_map<std::string_view, const std::string*> by_text;

    const std::string* intern(std::string_view text) {
        if (auto found = by_text.find(text); found != by_text.end()) return found->second;
        if (!is_utf8(text)) return intern(valid_utf8(text));
        const std::string& kept = texts.emplace_back(text);
        by_text.emplace(kept, &kept);
        return &kept;
    }
};

SymbolTable& table() {
    static SymbolTable the_table;
    return the_table;
}

}  // namespace

Symbol::Symbol() {
    static const std::string* const empty_text = table().intern("");
    text_ = empty_text;
}

Symbol gensym(std::string_view text) { return Symbol(table().intern(text)); }

}  // namespace tq
