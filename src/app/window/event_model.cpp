#include "app/window/event_model.h"

#include "instance/prseq.h"
#include "model/events.h"

namespace tq {

namespace {

const EventColumn& column_of(const QModelIndex& index) {
    return event_columns()[static_cast<size_t>(index.column())];
}

}  // namespace

void EventModel::gather(const EventRows::Choice& choice) {
    beginResetModel();
    rows_.gather(box_, choice);
    endResetModel();
}

const Event* EventModel::event_at(const QModelIndex& index) const {
    const auto row = static_cast<size_t>(index.row());
    return index.isValid() && row < rows_.size() ? TQ_Prseq_Events_FindEventFromID(box_, rows_.id(row))
                                                 : nullptr;
}

int EventModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int EventModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(event_columns().size());
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return event_columns()[static_cast<size_t>(section)].title;
}

QVariant EventModel::data(const QModelIndex& index, int role) const {
    const EventColumn& column = column_of(index);
    if (role == Qt::TextAlignmentRole) return int{column.side} | int{Qt::AlignVCenter};
    const Event* event = event_at(index);
    if (!event) return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole) return column.text(box_, *event);
    if (role == selected_role) return event->selected;
    return {};
}

Qt::ItemFlags EventModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.isValid() && column_of(index).edit ? shown | Qt::ItemIsEditable : shown;
}

bool EventModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const Event* event = event_at(index);
    if (!event || role != Qt::EditRole) return false;
    const EventColumn& column = column_of(index);
    const QString typed = value.toString();
    if (typed == column.text(box_, *event)) return false;
    const std::optional<Atoms> parts = column.edit(box_, *event, typed);
    if (parts) edit(event->id, *parts);
    return parts.has_value();
}

void EventModel::sort(int column, Qt::SortOrder order) {
    if (column >= 0) sorted(event_columns()[static_cast<size_t>(column)], order == Qt::DescendingOrder);
}

}  // namespace tq
