#include "host/field.h"

#include <algorithm>
#include <utility>

#include "host/class.h"
#include "host/host.h"

namespace tq {

namespace {

const Class& field_class() {
    static const Class the_class("field");
    return the_class;
}

/// A row, or a cell, that is there.
std::optional<size_t> index_below(AtomSpan atoms, size_t at, size_t count) {
    if (at >= atoms.size() || !atoms[at].is_number()) return {};
    const long index = atoms[at].as_long();
    if (index < 0 || static_cast<size_t>(index) >= count) return {};
    return static_cast<size_t>(index);
}

/// A number within the limits stays as it is, to the bit.
Atom held(const Atom& number, const FieldForm& form) {
    const double value = number.as_double(), within = std::clamp(value, form.minimum, form.maximum);
    return value == within ? number : Atom(within);
}

}  // namespace

Field::Field(Host& host, FieldForm form) : Object(host, field_class()), form_(std::move(form)) {}

void Field::show() { host().patch.field_shown(*this); }

void Field::set(Atoms value) {
    if (value == value_) return;
    value_ = std::move(value);
    show();
}

void Field::set_rows(std::vector<Atoms> rows) {
    if (rows == rows_) return;
    rows_ = std::move(rows);
    show();
}

void Field::set_choices(std::vector<std::string> choices) {
    if (choices == choices_) return;
    choices_ = std::move(choices);
    show();
}

void Field::enable(bool enabled) {
    if (std::exchange(enabled_, enabled) != enabled) show();
}

bool Field::modify(Symbol change, AtomSpan atoms) {
    if (!enabled_ || !take(change, atoms)) return false;
    object_notify(*this, gensym("modified"), change);
    show();
    return true;
}

bool Field::take(Symbol change, AtomSpan atoms) {
    const std::string& what = change.text();
    const bool table = form_.kind == FieldKind::Table;
    if (what == "value") return !table && take_value(atoms);
    if (what == "mousedown" || what == "mouseup") return form_.kind == FieldKind::Number;
    if (what == "cellchanged") return table && take_cell(atoms, true);
    if (what == "cell_mousedown" || what == "cell_mouseup") return table && take_cell(atoms, false);
    if (what == "rowadded") return form_.growing && take_row(atoms, true);
    if (what == "rowdeleted") return form_.growing && take_row(atoms, false);
    return what == "cleared" && form_.growing && (rows_.clear(), true);
}

bool Field::take_value(AtomSpan atoms) {
    switch (form_.kind) {
        case FieldKind::Label:
            return false;
        case FieldKind::Text:
            value_.assign(atoms.begin(), atoms.end());
            return true;
        case FieldKind::Toggle:
            if (atoms.size() != 1 || !atoms[0].is_number()) return false;
            value_ = {long{atoms[0].as_double() != 0}};
            return true;
        case FieldKind::Menu:
        case FieldKind::Selector: {
            const size_t count = form_.kind == FieldKind::Menu ? choices_.size() : form_.pages.size();
            const auto index = index_below(atoms, 0, count);
            if (index) value_ = {static_cast<long>(*index)};
            return index.has_value();
        }
        case FieldKind::Number:
        case FieldKind::Color:
            if (atoms.size() != 1 || !atoms[0].is_number()) return false;
            value_ = {held(atoms[0], form_)};
            return true;
        case FieldKind::Table:
            break;
    }
    return false;
}

bool Field::take_cell(AtomSpan atoms, bool changes) {
    const auto row = index_below(atoms, 0, rows_.size()),
               column = index_below(atoms, 1, form_.columns.size());
    if (!row || !column) return false;
    if (changes) {
        if (atoms.size() != 3) return false;
        const bool text = form_.columns[*column].text;
        if (!text && !atoms[2].is_number()) return false;
        Atoms& cells = rows_[*row];
        if (cells.size() <= *column) cells.resize(*column + 1);
        cells[*column] =
            text && !atoms[2].is_symbol() ? Atom(gensym(atom_gettext(atoms.subspan(2)))) : atoms[2];
    }
    touched_ = {*row, *column};
    return true;
}

bool Field::take_row(AtomSpan atoms, bool adds) {
    if (adds) {
        rows_.emplace_back(atoms.begin(), atoms.end());
        touched_ = {rows_.size() - 1, 0};
        return true;
    }
    const auto row = index_below(atoms, 0, rows_.size());
    if (!row) return false;
    rows_.erase(rows_.begin() + static_cast<long>(*row));
    touched_ = {*row, 0};
    return true;
}

}  // namespace tq
