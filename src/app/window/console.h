// The console: what the box posts, and a line to send it messages.
#pragma once

#include <QWidget>
#include <functional>

#include "app/patch/session.h"

class QLineEdit;
class QPlainTextEdit;

namespace tq {

class Console : public QWidget, private SessionListener {
 public:
    explicit Console(Session& session);
    /// Called with each line that is entered.
    std::function<void(const std::string&)> entered = [](const std::string&) {};
    QLineEdit& line() { return *line_; }

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void post(const std::string& text) override;
    void error(const Object& object, const std::string& text) override;
    void dumpout(Symbol selector, AtomSpan atoms) override;
    void enter();
    void recall(qsizetype step);

    QPlainTextEdit* text_;
    QLineEdit* line_;
    QStringList history_;
    qsizetype recalled_ = 0;  ///< index in the history; its size when nothing is recalled
};

}  // namespace tq
