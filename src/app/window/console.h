// The console: what the box says, and a line to tell it something.
#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/patch/session.h"

class QAction;
class QKeyEvent;
class QLineEdit;
class QPlainTextEdit;
class QSettings;
class QToolButton;

namespace tq {

/// What leaves the outlets shows where that is chosen. The last lines that were said and entered are kept,
/// those that were entered for the next time as well.
class Console : public QWidget, private SessionListener {
 public:
    explicit Console(Session& session);
    /// Called with the lines that are entered, or pasted, in their order.
    std::function<void(const std::vector<std::string>&)> entered = [](auto&&) {};
    /// Escape was pressed in its line.
    std::function<void()> escaped = [] {};
    void say(const std::string& text);
    QLineEdit& line() { return *line_; }
    /// What is shown of what leaves the box, for the next time.
    void keep(QSettings& settings) const;
    void restore(const QSettings& settings);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    static constexpr int outlets = 4;

    void post(const std::string& text) override;
    void error(const Object& object, const std::string& text) override;
    void dumpout(Symbol selector, AtomSpan atoms) override;
    void outlet(int outlet, Symbol selector, AtomSpan atoms) override;
    void receiver(Symbol name, Symbol selector, AtomSpan atoms) override;
    QToolButton* make_filter();
    void say_soon(const std::string& text);
    void say_what_waits();
    void enter();
    void recall(int step);
    void complete();
    bool take_key(const QKeyEvent& event);

    const Session& session_;
    QPlainTextEdit* text_;
    QLineEdit* line_;
    std::array<QAction*, outlets + 1> shown_{};  ///< which outlets, and receivers
    QStringList waiting_;                        ///< is said soon
    QTimer soon_;
    std::vector<std::string> history_;  ///< the latest first
    int recalled_ = -1;                 ///< index in the history; −1: none
    QString typed_;                     ///< before anything was recalled
};

}  // namespace tq
