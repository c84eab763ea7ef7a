// The events of the document as a table, beside the main window.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdint>
#include <functional>

#include "app/patch/calls.h"
#include "app/window/event_rows.h"
#include "app/window/shortcuts.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace tq {

class EventModel;
class EventTableView;

/// Has no selection of its own: rows whose events are selected in the box are marked, and a click is a call
/// that selects them there.
class EventTable : public QDialog {
 public:
    struct User {
        std::function<void(const SessionCall&)> calls;
        std::function<void(Shortcut::What)> wants;
    };
    EventTable(QWidget& window, const Prseq& box, User user);
    /// Looks soon whether anything is otherwise; costs nothing while the list is hidden. Rows that take long
    /// to sort wait until nothing plays and nothing is dragged.
    void follow();

 protected:
    void showEvent(QShowEvent*) override { follow(); }

 private:
    /// Where this is the same, so are the rows.
    struct Listed {
        long revision = -1, emptied = -1, track = -1;
        std::uint64_t selection = 0;  ///< where only what is selected is listed
        friend bool operator==(const Listed&, const Listed&) = default;
    };
    Listed listed_now() const;
    QWidget* make_choices();
    void look();
    void gather();
    void show_counts();
    void show_selected();
    void select(size_t first, size_t last, const char* how);
    void delete_selected();
    void edit(long id, const Atoms& parts);
    void go_to(size_t row);

    const Prseq& box_;
    User user_;
    EventModel* model_;
    EventTableView* view_;
    QComboBox* tracks_;
    QCheckBox* selected_only_;
    QLabel* counts_;
    EventRows::Choice choice_;
    Listed listed_;  ///< when the rows were gathered
    std::uint64_t shown_selection_ = 0;
    QTimer look_again_;
    QElapsedTimer clock_;
    qint64 gathering_ms_ = 0;  ///< how long it took last
};

}  // namespace tq
