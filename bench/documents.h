// Documents to measure with.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/patch/session.h"

namespace bench {

/// A session whose document has `tracks` tracks and `events` events on them, one every `step` ms, by turns.
std::unique_ptr<tq::Session> document(size_t events, size_t tracks, double step);
/// Starts in ms, one every 10 ms, in order or shuffled (always the same way).
std::vector<long> event_starts(size_t count, bool shuffled);
/// An "event" message with a start and a note.
tq::Atoms event_message();
/// Which of its atoms are the start and the pitch.
constexpr size_t start_atom = 1, pitch_atom = 5;
/// A Standard MIDI File of `notes` notes on `tracks` tracks.
std::string midi_file(size_t notes, size_t tracks);
/// Bytes that are in use on the heap.
size_t heap_bytes();

}  // namespace bench
