// What is entered on the console is done.
#pragma once

#include <string>
#include <vector>

#include "app/window/window_lines.h"

namespace tq {

class Console;

/// Lines are echoed, run in their order, and commented where they do not do what they may have been meant to;
/// "help" and "help NAME" tell what there is.
class ConsoleLines : public WindowLines {
 public:
    ConsoleLines(MainWindow& window, Console& console);
    void run(const std::vector<std::string>& lines);

 private:
    void say(const std::string& line) override;
    void run_one(const std::string& line) override;
    void run_message(const std::string& line);
    void run_driver_line(const std::string& line);

    Console& console_;
    bool running_ = false;  ///< what is said is about a line of the console
};

}  // namespace tq
