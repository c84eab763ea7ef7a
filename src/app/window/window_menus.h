// The window's menu bar: rows of the one table of commands, and what the window does itself.
#pragma once

#include <functional>
#include <string>

#include "app/window/shortcuts.h"

class QMenuBar;

namespace tq {

struct WindowMenuActs {
    std::function<void(Shortcut::What)> act;
    std::function<bool(Shortcut::What)> enabled;
    std::function<bool(Shortcut::What)> checked;
    std::function<void(const std::string& path)> open;
    /// Of the active track: a receiver's name, or empty.
    std::function<std::string()> destination;
    std::function<void(const std::string& message)> send;  ///< to the box
};

/// Fills the bar. Each menu is made ready when it is about to be shown; the words of commands are those that
/// they have then. Each menu's object name is its title.
void make_window_menus(QMenuBar& bar, const Prseq& box, WindowMenuActs acts);

}  // namespace tq
