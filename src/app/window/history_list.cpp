#include "app/window/history_list.h"
#include "app/window/window_state.h"

#include <QAbstractListModel>
#include <QListView>
#include <QVBoxLayout>

#include "instance/prseq.h"

namespace tq {

namespace {

constexpr int first_width = 280, first_height = 420;

}  // namespace

/// Asks the history itself, so that its length costs nothing. The first row is the document before all edits.
class HistoryModel : public QAbstractListModel {
 public:
    HistoryModel(const Prseq& box, QObject* parent) : QAbstractListModel(parent), history_(box.history) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(history_.items.size()) + 1;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const int row = index.row();
        if (role == Qt::DisplayRole)
            return row == 0 ? QString("Beginning")
                            : QString::fromStdString(history_.items[static_cast<size_t>(row - 1)]->name());
        if (role == Qt::ForegroundRole && row > current())
            return QPalette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    }
    /// The row of the last edit that is applied.
    int current() const { return static_cast<int>(history_.cursor) + 1; }
    /// Whether anything is otherwise than when this was asked last.
    bool take_change() {
        const State state{history_.items.size(), history_.cursor,
                          history_.items.empty() ? nullptr : history_.items.back().get()};
        if (state == shown_) return false;
        beginResetModel();
        shown_ = state;
        endResetModel();
        return true;
    }

 private:
    struct State {
        size_t count = 0;
        long cursor = 0;
        const UndoItem* last = nullptr;
        friend bool operator==(const State&, const State&) = default;
    };
    const History& history_;
    State shown_;
};

HistoryList::HistoryList(QWidget& window, const Prseq& box, std::function<void(long)> go)
    : QDialog(&window), box_(box), model_(new HistoryModel(box, this)), view_(new QListView) {
    setObjectName("history list");
    setWindowTitle("History");
    view_->setModel(model_);
    view_->setUniformItemSizes(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    resize(first_width, first_height);
    keep_place(*this, "history");
    const auto go_to = [this, go = std::move(go)](const QModelIndex& index) {
        if (index.row() != model_->current()) go(index.row() - 1);
    };
    connect(view_, &QListView::clicked, this, go_to);
    connect(view_, &QListView::activated, this, go_to);
}

void HistoryList::follow() {
    if (!isVisible() || !model_->take_change()) return;
    const QModelIndex now = model_->index(model_->current());
    view_->setCurrentIndex(now);
    view_->scrollTo(now);
}

}  // namespace tq
