// What windows look like the next time: kept among the user's state files.
#pragma once

#include <QSettings>
#include <memory>

class QSplitter;
class QString;
class QWidget;

namespace tq {

/// The file that it is kept in, shared by all windows; the one that writes last counts.
std::unique_ptr<QSettings> window_state();

/// Shows a window where and as large as it was, and keeps that when it is hidden. `name` tells windows apart.
void keep_place(QWidget& window, const QString& name);

}  // namespace tq
