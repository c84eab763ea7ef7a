#include "inspectors/fields.h"

#include "instance/symbols.h"

namespace tq {

void change_nothing(const Inspected&, const Field&, const std::string&) {}

std::string text_of(const Field& field) {
    const Atoms& words = field.value();
    std::string text =
        words.size() == 1 && words[0].is_symbol() ? words[0].as_symbol().text() : atom_gettext(words);
    return text == tq_sym_empty.text() ? "" : text;
}

Atom cell_of(const Field& field, size_t row, size_t column, double otherwise) {
    if (row >= field.rows().size() || column >= field.rows()[row].size()) return Atom(otherwise);
    return field.rows()[row][column];
}

}  // namespace tq
