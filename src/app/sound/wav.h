// Sound files that are written.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "app/sound/played_note.h"

namespace tq {

struct WavOptions {
    double length_ms = 0;      ///< the file lasts at least this long, and until the last note has faded
    double volume = 1;         ///< 0…1
    std::string sound_font{};  ///< empty: the one that find_sound_font() finds
    /// Told now and then how much is done, 0…1; false: stop, and leave the file as it was.
    std::function<bool(double)> progress = [](double) { return true; };
    bool full_level = false;  ///< as loud as the file can be: everything is rendered twice
};

/// Renders notes into a WAV file, or a FLAC file when the path ends so: 44100 Hz, stereo, 16 bit; each note
/// begins at the sample nearest to its time. The file is written as a FileWriter does. Throws SoundError with
/// the reason; false when it was stopped.
bool render_wav(std::span<const PlayedNote> notes, const std::string& path, const WavOptions& options = {});

}  // namespace tq
