// The script driver's lines in real time, on a window.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <deque>
#include <string>

#include "app/patch/paint_offscreen.h"
#include "app/script/driver.h"

namespace tq {

class MainWindow;

/// Runs lines in their order, each as soon as it can: ".wait" keeps those after it waiting, and so does a
/// dialog that is open. ".size" resizes the window, ".quit" closes it. ".run" begins a script, whose lines
/// come first; lines that are added while it waits are run meanwhile, and another ".run" among them takes its
/// place. The window goes on living while many lines are run.
class WindowLines : public QObject, protected Driver {
 public:
    /// The lines are told by `name` and their numbers.
    WindowLines(MainWindow& window, std::string name);
    /// Whether a script is running.
    bool script_runs() { return scripts().any(); }
    /// Ends the script that is running, and forgets the lines that wait.
    void stop();

 protected:
    /// Lines are numbered from 1 on.
    void add(std::string line, long number);
    /// Runs what can be run now.
    void run_lines();
    bool idle() { return lines_.empty() && !entered_.pause.isActive() && !script_runs(); }
    /// A line is being run, or a script has just ended: what is said is about that.
    bool speaking() const { return speaking_; }

    /// A line that was added.
    virtual void run_entered(const std::string& line, const ScriptPlace& place) { run_line(line, place); }
    /// A line of a script that is running.
    virtual void run_scripted(const std::string& line, const ScriptPlace& place) { run_line(line, place); }
    /// A line was not understood; in a script, which ends then, or among those that were added.
    virtual void tell_fault(const ScriptFault& fault, bool in_script) = 0;
    /// The box complains of a line of a script.
    virtual void tell_complaint(const ScriptPlace& place, const std::string& what) = 0;
    /// Nothing is left to be run.
    virtual void finished() {}

    void wait(double ms) override;
    void resize(Size size) override;
    void paint(const std::string& file, double ratio) override;
    void quit() override;
    void run_script(const std::string& file) override;
    void stop_scripts() override;

    MainWindow& window_;

 private:
    using Clock = std::chrono::steady_clock;
    /// What waits by itself: the lines that were added, or the script. A wait begins where the one before
    /// ended, so that many of them are as long as they should be.
    struct Lane {
        QTimer pause;
        Clock::time_point reached = Clock::now();
    };
    struct Line {
        std::string text;
        long number;
    };
    void run_next();
    void run_next_of_script();
    void run_next_entered();
    void end_script(const std::string& how);
    bool script_can_go_on() { return script_runs() && !script_.pause.isActive(); }
    bool can_go_on() { return script_can_go_on() || (!lines_.empty() && !entered_.pause.isActive()); }

    OffscreenPainter painter_;
    const std::string name_;
    Lane entered_, script_;
    QTimer again_;  ///< until lines are run again
    std::deque<Line> lines_;
    bool in_script_ = false;  ///< the line that is being run is of a script
    bool speaking_ = false;
    std::string script_name_;       ///< of the one that runs the others
    bool script_is_quiet_ = false;  ///< it began the stretch of quiet lines, if there is one
};

}  // namespace tq
