// Events that play sound files.
#pragma once

#include <span>
#include <string>

#include "host/geometry.h"

namespace tq {

struct Prseq;
class Session;
class SoundFiles;

/// Where a sound begins: ms, and the pitch that its event is drawn at.
struct SoundPlace {
    double start = 0, pitch = 60;
};
/// Where the pencil would draw an event at a point of the box; beside its main display, the play position and
/// middle C.
SoundPlace place_at(const Prseq& box, Point at);
/// The play position, as high as what is selected or else as middle C.
SoundPlace place_at_position(const Prseq& box);

/// Makes events of sound files on the active track, or a new one that is called after the first of them: one
/// behind the other, as long as their sounds, each linked to a buffer that is called after its file, each a
/// step of the history. False when a file is no sound or cannot be read, or the track is hidden: that is
/// posted as an error, and the others are added.
bool add_sounds(Session& session, SoundFiles& sounds, std::span<const std::string> files, SoundPlace place);

}  // namespace tq
