// Drives the window from outside: each line of standard input is done at the moment it comes, and what the
// box says goes to standard output.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <deque>
#include <string>

#include "app/patch/paint_offscreen.h"
#include "app/script/driver.h"
#include "app/script/session_printer.h"
#include "app/window/main_window.h"

namespace tq {

/// The script driver's lines in real time: ".wait" keeps the lines after it waiting, ".size" resizes the
/// window, ".quit" closes it. A line that is not understood is said on standard error and skipped.
class LineInput : public QObject, private Driver {
 public:
    /// With `close_at_end` the window is closed when the input ends.
    LineInput(MainWindow& window, bool close_at_end);
    /// Until then nothing is read.
    void start() { notifier_.setEnabled(true); }

 private:
    void say(const std::string& line) override { printer_.say(line); }
    void wait(double ms) override;
    void resize(Size size) override;
    void paint(const std::string& file, double ratio) override;
    void quit() override;

    void read_input();
    void run_lines();
    void run_one(const std::string& line);

    MainWindow& window_;
    SessionPrinter printer_;
    OffscreenPainter painter_;
    QSocketNotifier notifier_;
    QTimer pause_;
    std::string text_;  ///< what was read of a line that is not whole
    std::deque<std::string> lines_;
    long number_ = 0;
    bool close_at_end_, ended_ = false;
};

}  // namespace tq
