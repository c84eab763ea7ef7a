// Showing the window.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tq {

class Session;

/// Shows the window, with a file opened when `file` is not empty, until it is closed; returns the exit
/// status. `prepare` is called before with the session, and says whether to go on. None, and nothing happens,
/// when there is no display.
std::optional<int> show_main_window(const std::string& file, const std::function<bool(Session&)>& prepare);

}  // namespace tq
