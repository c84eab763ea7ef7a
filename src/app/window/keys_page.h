// The page that lists what keys and the mouse do.
#pragma once

class QWidget;

namespace tq {

/// Shows the window's page, which stands beside it while one goes on working.
void show_keys_page(QWidget& window);

}  // namespace tq
