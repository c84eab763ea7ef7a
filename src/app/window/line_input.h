// Drives the window from outside: each line of standard input is done at the moment it comes, and what the
// box says goes to standard output.
#pragma once

#include <QSocketNotifier>
#include <string>

#include "app/script/session_printer.h"
#include "app/window/window_lines.h"

namespace tq {

/// A line that is not understood is said on standard error and skipped; in a script it ends the script.
class LineInput : public WindowLines {
 public:
    /// With `close_at_end` the window is closed when the input ends.
    LineInput(MainWindow& window, bool close_at_end);
    /// Until then nothing is read.
    void start() { notifier_.setEnabled(true); }

 private:
    void say(const std::string& line) override { printer_.say(line); }
    void tell_fault(const ScriptFault& fault, bool in_script) override;
    void tell_complaint(const ScriptPlace& place, const std::string& what) override;
    void advise(const ScriptPlace& place, const std::string& what) override { tell_complaint(place, what); }
    void finished() override;
    void read_input();

    SessionPrinter printer_;
    QSocketNotifier notifier_;
    std::string text_;  ///< what was read of a line that is not whole
    long number_ = 0;   ///< of the last line that is
    bool close_at_end_, ended_ = false;
};

}  // namespace tq
