// What is entered on the console is done.
#pragma once

#include <string>
#include <vector>

#include "app/window/window_lines.h"

namespace tq {

class Console;

/// Lines are echoed, run in their order, and commented where they do not do what they may have been meant to,
/// but in quiet stretches and in scripts; "help" and "help NAME" tell what there is.
class ConsoleLines : public WindowLines {
 public:
    ConsoleLines(MainWindow& window, Console& console);
    void run(const std::vector<std::string>& lines);
    /// Asks for a script and runs it; false when none was chosen.
    bool choose_and_run();
    using WindowLines::speaking;

 private:
    void say(const std::string& line) override;
    void run_entered(const std::string& line, const ScriptPlace& place) override;
    void run_scripted(const std::string& line, const ScriptPlace& place) override;
    void tell_fault(const ScriptFault& fault, bool in_script) override;
    void tell_complaint(const ScriptPlace& place, const std::string& what) override;
    void run_message(const std::string& line, const ScriptPlace& place);
    void run_driver_line(const std::string& line, const ScriptPlace& place);

    Console& console_;
};

}  // namespace tq
