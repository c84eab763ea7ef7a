// Sound files.
#pragma once

#include <span>
#include <string>

#include "app/sound/played_note.h"

namespace tq {

struct WavOptions {
    double length_ms = 0;    ///< the file lasts at least this long, and until the last note has faded
    double volume = 1;       ///< 0…1
    std::string sound_font;  ///< empty: the one that find_sound_font() finds
};

/// Renders notes into a WAV file: 44100 Hz, stereo, 16 bit; each note begins at the sample nearest to its
/// time. The file is written as a FileWriter does. Throws SoundError with the reason.
void render_wav(std::span<const PlayedNote> notes, const std::string& path, const WavOptions& options = {});

}  // namespace tq
