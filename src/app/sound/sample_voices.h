// Plays sampled sounds at any speed.
#pragma once

#include <cstdint>
#include <vector>

#include "app/sound/synth_note.h"

namespace tq {

/// What sounds of notes that play samples. Between frames, and at any other speed than 1, sound is
/// interpolated band-limited; at speed 1 the very frames are played.
class SampleVoices {
 public:
    explicit SampleVoices(double rate);

    /// Starts the note's sample with the next sample that is mixed, `late` samples after the note's time; its
    /// end stays. The note must live until mix() or clear() has given it back. False, and nothing happens,
    /// when 1024 sound already: more would need memory, which the audio thread does not ask for.
    bool start(SynthNote& note, std::int64_t late);
    /// Ends the note within a few ms, without a click.
    void fade(const SynthNote& note);
    bool silent() const { return voices_.empty(); }

    /// Adds the next samples, and calls over(SynthNote&) for each note that has ended.
    template <typename Over>
    void mix(float* left, float* right, int count, Over over) {
        for (std::size_t i = voices_.size(); i-- > 0;) {
            if (sound(voices_[i], left, right, count)) continue;
            SynthNote& ended = *voices_[i].note;
            voices_[i] = voices_.back();
            voices_.pop_back();
            over(ended);
        }
    }
    /// Ends everything at once.
    template <typename Over>
    void clear(Over over) {
        while (!voices_.empty()) {
            SynthNote& ended = *voices_.back().note;
            voices_.pop_back();
            over(ended);
        }
    }

 private:
    struct Voice {
        SynthNote* note;
        std::int64_t played, length;  // samples
        bool fades;                   // towards its end
    };
    struct Stereo {
        float left = 0, right = 0;
    };

    /// Adds the voice's next samples; false when it is over.
    bool sound(Voice& voice, float* left, float* right, int count) const;
    Stereo interpolated(const Sound& sound, double position, double stretch) const;
    static Stereo folded(const Sound& sound, long frame);

    const float fade_samples_;
    std::vector<float> kernel_;  // half of it
    std::vector<Voice> voices_;  // in no order
};

}  // namespace tq
