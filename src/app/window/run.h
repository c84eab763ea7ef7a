// Showing the window.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tq {

class Session;

struct WindowOptions {
    std::string file;      ///< is opened; empty: none
    bool recover = false;  ///< bring the latest session back that ended unexpectedly, without asking
    bool lines = false;    ///< lines of standard input drive the window, with or without a display
    /// Called with the session before the file is opened; says whether to go on.
    std::function<bool(Session&)> prepare;
};

/// Shows the window until it is closed; returns the exit status. None, and nothing happens, when there is no
/// display.
std::optional<int> show_main_window(const WindowOptions& options);

}  // namespace tq
