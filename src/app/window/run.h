// Showing the window.
#pragma once

#include <optional>
#include <string>

namespace tq {

/// Shows the window, with a file opened when `file` is not empty, until it is closed; returns the exit
/// status. None, and nothing happens, when there is no display.
std::optional<int> show_main_window(const std::string& file);

}  // namespace tq
