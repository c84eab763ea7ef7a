// Keeps what was played.
#pragma once

#include <map>
#include <vector>

#include "app/sound/player.h"

namespace tq {

/// A player that only listens. What is stopped is kept as long as it sounded.
class Recorder : public Player {
 public:
    void note(const PlayedNote& note) override;
    void stop(const std::string& source, double ms) override;
    void stop_track(long track, double ms) override;
    void stop_all(double ms) override;

    const std::vector<PlayedNote>& notes() const { return notes_; }
    /// When the last note ends, in ms.
    double end_ms() const;
    /// The notes by track, source and sound, in that order, for write_midi_file(). A part has the name that
    /// `names` gives its track, else that of its sound.
    std::vector<MidiPart> midi_parts(const std::map<long, std::string>& names = {}) const;

 private:
    void cut(std::vector<std::size_t>& notes, double ms);

    std::vector<PlayedNote> notes_;
    std::map<std::string, std::vector<std::size_t>> unstopped_;  // by source
};

}  // namespace tq
