// The editing history as a list: a click goes to how the document was after that edit.
#pragma once

#include <QDialog>
#include <functional>

class QListView;

namespace tq {

struct Prseq;

class HistoryModel;

class HistoryList : public QDialog {
 public:
    /// `go`: to where this edit is the last one that is applied; −1 is the beginning.
    HistoryList(QWidget& window, const Prseq& box, std::function<void(long edit)> go);
    /// Shows the history as it is now; costs nothing while it has not changed or the list is hidden.
    void follow();

 protected:
    void showEvent(QShowEvent*) override { follow(); }

 private:
    const Prseq& box_;
    HistoryModel* model_;
    QListView* view_;
};

}  // namespace tq
