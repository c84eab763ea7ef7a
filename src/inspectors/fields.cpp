#include "inspectors/fields.h"

namespace tq {

void change_nothing(const Inspected&, const Field&, const std::string&) {}

Atom cell_of(const Field& field, size_t row, size_t column, double otherwise) {
    if (row >= field.rows().size() || column >= field.rows()[row].size()) return Atom(otherwise);
    return field.rows()[row][column];
}

}  // namespace tq
