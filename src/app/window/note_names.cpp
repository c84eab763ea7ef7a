#include "app/window/note_names.h"

#include <cmath>

#include "app/midi/programs.h"
#include "app/patch/receivers.h"
#include "instance/track.h"

namespace tq {

namespace {

QString key_name(double pitch, long key) {
    static constexpr const char* names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    constexpr long keys = 12, lowest_octave = -2;  // as the key display counts
    const long in_octave = ((key % keys) + keys) % keys;
    const long octave = (key - in_octave) / keys + lowest_octave;
    const QString name = QString("%1%2").arg(names[in_octave]).arg(octave);
    const long cents = std::lround((pitch - static_cast<double>(key)) * 100);
    return cents ? name + QString(" +%1").arg(cents) : name;
}

}  // namespace

QString note_name(double pitch, const Track* track) {
    const long key = std::lround(std::floor(pitch));
    const std::optional<Voice> voice =
        track ? voice_of_receiver(track->destination.text()) : std::optional<Voice>();
    const std::string_view drum = voice && voice->drums ? midi_drum_name(key) : std::string_view();
    const QString name = key_name(pitch, key);
    return drum.empty() ? name
                        : name + " " + QString::fromUtf8(drum.data(), static_cast<qsizetype>(drum.size()));
}

}  // namespace tq
