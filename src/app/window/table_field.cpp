#include "app/window/table_field.h"

#include <QAbstractItemDelegate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tq {

namespace {

constexpr int row_height = 22, spacing = 4;  // pixels

QString text_of(const Atom& cell) {
    return QString::fromStdString(cell.is_symbol() ? cell.as_symbol().text() : number_text(cell));
}

}  // namespace

/// Return begins and ends the typing in a cell.
class TableField::Cells final : public QTableWidget {
 public:
    explicit Cells(const FieldUser& user) : user_(user) {}

    /// Whether what was typed last is about what is shown.
    bool is_current() const { return about_ == user_.subject(); }
    void stop_typing(bool keep) {
        QWidget* const editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
        if (!editor) return;
        if (keep) commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }

 protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override {
        if (state() != EditingState) about_ = user_.subject();
        return QTableWidget::edit(index, trigger, event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!enter || state() == EditingState) return QTableWidget::keyPressEvent(event);
        edit(currentIndex(), EditKeyPressed, event);
    }

 private:
    const FieldUser& user_;
    const void* about_ = nullptr;
};

TableField::TableField(const FieldForm& form, FieldUser user)
    : form_(form), user_(std::move(user)), cells_(new Cells(user_)) {
    QStringList titles;
    for (const TableColumn& column : form.columns) titles << QString::fromStdString(column.title);
    cells_->setColumnCount(static_cast<int>(titles.size()));
    cells_->setHorizontalHeaderLabels(titles);
    cells_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    cells_->horizontalHeader()->setHighlightSections(false);
    cells_->verticalHeader()->hide();
    cells_->verticalHeader()->setDefaultSectionSize(row_height);
    cells_->setSelectionMode(QAbstractItemView::SingleSelection);
    cells_->setTabKeyNavigation(false);
    cells_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    column->addWidget(cells_);
    if (form.growing) column->addWidget(make_buttons());
    setFocusProxy(cells_);
    connect(cells_, &QTableWidget::itemChanged, this, &TableField::type_cell);
}

QWidget* TableField::make_buttons() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    const struct {
        const char *text, *name, *hint;
        void (TableField::*act)();
    } rows[] = {{"+", "add row", "Add a row", &TableField::add_row},
                {"−", "delete row", "Delete the row", &TableField::delete_row}};
    for (const auto& each : rows) {
        auto* button = new QToolButton;
        button->setText(each.text);
        button->setObjectName(each.name);
        button->setToolTip(each.hint);
        button->setAccessibleName(each.hint);
        button->setFocusPolicy(Qt::StrongFocus);
        connect(button, &QToolButton::clicked, this, each.act);
        row->addWidget(button);
    }
    row->addStretch(1);
    return buttons;
}

void TableField::keep_cell(int row, int column, const QString& text) {
    QTableWidgetItem* item = cells_->item(row, column);
    if (!item) cells_->setItem(row, column, item = new QTableWidgetItem);
    if (item->text() != text) item->setText(text);
    if (!form_.columns[size_t(column)].text) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

/// The current cell stays; what is being typed into it stays where nothing has changed.
void TableField::display(const Field& field) {
    setEnabled(field.enabled());
    if (field.rows() == shown_ && cells_->rowCount() == std::ssize(shown_)) return;
    if (!saying_) cells_->stop_typing(false);
    const QSignalBlocker quiet(cells_);
    shown_ = field.rows();
    cells_->setRowCount(static_cast<int>(shown_.size()));
    for (int row = 0; row < cells_->rowCount(); ++row)
        for (int column = 0; column < cells_->columnCount(); ++column) {
            const Atoms& cells = shown_[size_t(row)];
            keep_cell(row, column, size_t(column) < cells.size() ? text_of(cells[size_t(column)]) : "");
        }
}

void TableField::finish() { cells_->stop_typing(true); }

/// The cell shows what the field has, until that has become another.
void TableField::type_cell(QTableWidgetItem* item) {
    const int row = item->row(), column = item->column();
    const QString typed = item->text();
    const Atoms before = size_t(row) < shown_.size() ? shown_[size_t(row)] : Atoms();
    const QString shown = size_t(column) < before.size() ? text_of(before[size_t(column)]) : "";
    {
        const QSignalBlocker quiet(cells_);
        item->setText(shown);
    }
    if (typed == shown || !cells_->is_current()) return;
    const bool text = form_.columns[size_t(column)].text;
    const std::optional<double> number = text ? 0 : number_of(typed.toStdString());
    if (!number) return;
    const Atom value = text ? Atom(gensym(typed.toStdString())) : number_atom(*number);
    saying_ = true;  // the editor closes itself
    user_.does("cellchanged", {row, column, value});
    user_.does("cell_mouseup", {row, column});
    saying_ = false;
}

/// The box knows what a row with a name begins with; numbers alone go on after the last row.
void TableField::add_row() {
    finish();
    Atoms row;
    if (!std::ranges::any_of(form_.columns, &TableColumn::text) && !shown_.empty()) {
        row = shown_.back();
        row.front() = number_atom(row.front().as_double() + 1);
    }
    user_.does("rowadded", row);
    cells_->setCurrentCell(cells_->rowCount() - 1, 0);
}

void TableField::delete_row() {
    finish();
    if (cells_->currentRow() >= 0) user_.does("rowdeleted", {cells_->currentRow()});
}

}  // namespace tq
