// The page that lists what keys and the mouse do, and changes the keys.
#pragma once

#include <functional>

class QWidget;

namespace tq {

/// Shows the window's page, which stands beside it while one goes on working; `changed` is called when
/// shortcuts() are others.
void show_keys_page(QWidget& window, const std::function<void()>& changed);

}  // namespace tq
