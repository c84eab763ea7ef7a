// A table whose cells are typed into, with buttons for rows where it can grow.
#pragma once

#include <QTableWidget>

#include "app/window/field_control.h"

namespace tq {

class TableField final : public QWidget, public FieldControl {
 public:
    TableField(const FieldForm& form, FieldUser user);
    QWidget& widget() override { return *this; }
    void display(const Field& field) override;
    void finish() override;

 private:
    class Cells;
    QWidget* make_buttons();
    void type_cell(QTableWidgetItem* item);
    void add_row();
    void delete_row();
    void keep_cell(int row, int column, const QString& text);

    FieldForm form_;
    FieldUser user_;
    Cells* cells_;
    std::vector<Atoms> shown_;
    bool saying_ = false;
};

}  // namespace tq
