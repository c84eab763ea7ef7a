// What is under the pointer, in words.
#pragma once

#include <QPoint>
#include <QString>

namespace tq {

struct Prseq;

/// In the main display: the time as the ruler tells it, and the key; among the keys, the key. Empty
/// elsewhere.
QString pointer_text(const Prseq& box, QPoint at);
/// On an icon of the mouse modes: its mode, and the key that chooses it. Empty elsewhere.
QString tip_at(const Prseq& box, QPoint at);

}  // namespace tq
