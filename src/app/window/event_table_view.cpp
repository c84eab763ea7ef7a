#include "app/window/event_table_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <algorithm>
#include <optional>

#include "app/window/event_model.h"
#include "instance/event.h"

namespace tq {

namespace {

constexpr int row_padding = 6;  // pixels

/// Marks what is selected in the box.
class EventDelegate : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected, index.data(EventModel::selected_role).toBool());
    }
};

}  // namespace

EventTableView::EventTableView(EventModel& model) : model_(model) {
    setObjectName("event table");
    setModel(&model);
    setItemDelegate(new EventDelegate(this));
    setSelectionMode(NoSelection);
    setEditTriggers(EditKeyPressed | AnyKeyPressed);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + row_padding);
    horizontalHeader()->setStretchLastSection(true);
    int column = 0;
    for (const EventColumn& shown : event_columns()) setColumnWidth(column++, shown.width);
}

bool EventTableView::selected(int row) const {
    return model_.index(row, 0).data(EventModel::selected_role).toBool();
}

void EventTableView::move_focus(int row) {
    const int column = std::max(currentIndex().column(), 0);
    anchor_ = row;
    selectionModel()->setCurrentIndex(row < 0 ? QModelIndex() : model_.index(row, column),
                                      QItemSelectionModel::NoUpdate);
}

/// As in any list, of the row that has the focus by now.
void EventTableView::choose(Qt::KeyboardModifiers modifiers) {
    const int here = row();
    if (here < 0) return;
    const bool range = modifiers & Qt::ShiftModifier, more = modifiers & Qt::ControlModifier;
    if (!range || anchor_ < 0) anchor_ = here;
    const auto [first, last] = std::minmax(anchor_, here);
    const char* how = !more ? "only" : !range && selected(here) ? "remove" : "add";
    select(static_cast<size_t>(first), static_cast<size_t>(last), how);
}

void EventTableView::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == currentIndex())
        choose(event->modifiers());
}

void EventTableView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && pressed.isValid()) go_to(static_cast<size_t>(pressed.row()));
}

void EventTableView::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool control = modifiers & Qt::ControlModifier;
    if (event->matches(QKeySequence::SelectAll)) {
        if (const size_t count = model_.rows().size()) select(0, count - 1, "only");
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (row() >= 0) go_to(static_cast<size_t>(row()));
            return;
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            return erase();
        case Qt::Key_Space:
            return control ? choose(modifiers) : play_or_stop();
    }
    const int before = row();
    QTableView::keyPressEvent(event);
    if (row() != before && !control) choose(modifiers);
}

}  // namespace tq
