// Asking for a key to be pressed.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <optional>

class QWidget;

namespace tq {

/// The keys that were chosen; none: those of the beginning.
using KeyAnswer = std::optional<QList<QKeySequence>>;
/// Asks what is to press this. None when the user cancels.
std::optional<KeyAnswer> ask_for_key(QWidget& parent, const QString& what);

}  // namespace tq
