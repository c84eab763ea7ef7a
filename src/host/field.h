// Form controls: what stands in the boxes of a patcher that is a form.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/object.h"

namespace tq {

enum class FieldKind { Label, Text, Number, Toggle, Menu, Color, Table, Selector };

struct TableColumn {
    std::string title;
    bool text = false;  ///< or numbers
};

/// What a control is, and what it takes: as its patcher file says.
struct FieldForm {
    FieldKind kind = FieldKind::Label;
    std::string label, unit;
    double minimum = -1e12, maximum = 1e12;  ///< of a number
    double step = 1;                         ///< of a number, for a pixel of a drag or a step of the wheel
    std::vector<std::string> pages;          ///< of a selector
    std::vector<TableColumn> columns;        ///< of a table
    bool growing = false;                    ///< rows of the table can be added and deleted
};

/// A cell of a table; a row that was added or deleted has no column.
struct Cell {
    size_t row = 0, column = 0;
};

/// One form control. Its owner writes what it shows; what a user does to it, it tells those who watch it by
/// "modified", with the kind of change: "value", "mousedown", "mouseup", "cellchanged", "cell_mousedown",
/// "cell_mouseup", "rowadded", "rowdeleted" or "cleared".
class Field : public Object {
 public:
    Field(Host& host, FieldForm form);

    const FieldForm& form() const { return form_; }
    /// A number, 0 or 1, an index, a hue, or the words of a text. Nothing for tables.
    const Atoms& value() const { return value_; }
    const std::vector<Atoms>& rows() const { return rows_; }
    /// The lines of a menu.
    const std::vector<std::string>& choices() const { return choices_; }
    bool enabled() const { return enabled_; }
    /// What of a table the user has changed or touched last.
    Cell touched() const { return touched_; }

    // What the owner writes is not told.
    void set(Atoms value);
    void set_rows(std::vector<Atoms> rows);
    void set_choices(std::vector<std::string> choices);
    void enable(bool enabled);

    /// What a user does: the value follows, held to what the control takes, and it is told. False when the
    /// control knows no such change, does not take these atoms, or is not enabled.
    bool modify(Symbol change, AtomSpan atoms);

 private:
    void show();
    bool take(Symbol change, AtomSpan atoms);
    bool take_value(AtomSpan atoms);
    bool take_cell(AtomSpan atoms, bool changes);
    bool take_row(AtomSpan atoms, bool adds);

    FieldForm form_;
    Atoms value_;
    std::vector<Atoms> rows_;
    std::vector<std::string> choices_;
    bool enabled_ = true;
    Cell touched_;
};

}  // namespace tq
