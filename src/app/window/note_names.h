// What keys are called.
#pragma once

#include <QString>

namespace tq {

struct Track;

/// "C#3", as the key display counts octaves, with cents where it lies above a key; on a track of drums, what
/// the key sounds like, too. `track` may be none.
QString note_name(double pitch, const Track* track);

}  // namespace tq
