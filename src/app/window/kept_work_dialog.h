// The list of what was not lost, to be brought back or deleted.
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "app/window/kept_work_looker.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace tq {

class KeptWorkDialog : public QDialog {
 public:
    KeptWorkDialog(std::vector<KeptWork> work, QWidget* parent);
    /// What the user wants to have back, once the dialog was accepted.
    std::optional<KeptWork> choice() const { return choice_; }

 private:
    void add_rows();
    void add_buttons();
    void show_row(size_t row, const std::optional<KeptWorkLooker::Seen>& seen);
    void enable_buttons();
    /// −1: none.
    int row() const;
    void bring_back();
    void remove();
    void show_folder();

    std::vector<KeptWork> work_;  ///< one a row
    std::optional<KeptWork> choice_;
    QListWidget* list_;
    QLabel* nothing_;
    QPushButton *bring_back_, *delete_, *show_folder_;
    KeptWorkLooker looker_;
};

/// Shows the list until something of it is to come back, which is the answer, or nothing now. Deletes what
/// the user wants to be deleted.
std::optional<KeptWork> choose_kept_work(std::vector<KeptWork> work, QWidget* parent);

}  // namespace tq
