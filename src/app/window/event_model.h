// The rows of the list of events as the toolkit's views ask for them.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "app/window/event_columns.h"
#include "app/window/event_rows.h"

namespace tq {

/// Keeps identifiers alone; what is shown is asked of the box.
class EventModel : public QAbstractTableModel {
 public:
    static constexpr int selected_role = Qt::UserRole;
    EventModel(const Prseq& box, QObject* parent) : QAbstractTableModel(parent), box_(box) {}

    /// An event is to become what its parts say.
    std::function<void(long id, const Atoms& parts)> edit = [](long, const Atoms&) {};
    /// The rows are to be sorted by another column.
    std::function<void(const EventColumn&, bool descending)> sorted = [](const EventColumn&, bool) {};

    void gather(const EventRows::Choice& choice);
    const EventRows& rows() const { return rows_; }
    /// None when it has gone.
    const Event* event_at(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

 private:
    const Prseq& box_;
    EventRows rows_;
};

}  // namespace tq
