// The table of events itself: what keys and the mouse mean in it.
#pragma once

#include <QTableView>
#include <functional>

namespace tq {

class EventModel;

class EventTableView : public QTableView {
 public:
    explicit EventTableView(EventModel& model);
    /// These rows are to be selected: `how` is "only", "add" or "remove".
    std::function<void(size_t first, size_t last, const char* how)> select;
    std::function<void(size_t row)> go_to;
    std::function<void()> erase, play_or_stop;

    bool is_editing() const { return state() == EditingState; }
    /// The row with the focus; −1: none.
    int row() const { return currentIndex().row(); }
    /// The rows are others: the focus is here now, without a change of what is selected.
    void move_focus(int row);

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void choose(Qt::KeyboardModifiers modifiers);
    bool selected(int row) const;

    EventModel& model_;
    int anchor_ = -1;  ///< where a range that Shift selects begins
};

}  // namespace tq
