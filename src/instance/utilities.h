// Pitch and frequency, steps, the random seed and identifiers.
#pragma once

#include <cstdint>
#include <string>

#include "host/symbol.h"

namespace tq {

struct Prseq;

/// MIDI note number to Hz and back, by the instance's base frequency (that of pitch 69).
double TQ_Utilities_ConvertMidiToHz(const Prseq& object, double pitch);
double TQ_Utilities_ConvertHzToMidi(const Prseq& object, double frequency);

/// The nearest of `steps` values spread evenly over 0 to range; unchanged for fewer than 2 steps.
double TQ_Utilities_RoundValueWithSteps(double value, double range, long steps);

struct StepRecord {
    double minimum = 0, maximum = 0;
    long steps = 0;
};
/// The nearest boundary of `steps` equal parts of minimum to maximum.
double TQ_Utilities_NearestValue(double value, const StepRecord& record);

/// A seed made of the calendar time in seconds.
std::uint32_t time_seed();

/// A new event identifier; the first is 1.
long TQ_Prseq_Utilities_IncreaseEventID(Prseq& object);

/// The path of a file that comes with the program, at most 2048 bytes; empty when its folder is not there.
/// The file need not exist.
Symbol TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(Symbol filename);

/// A text cut to at most `bytes` bytes, never inside a UTF-8 character.
std::string cut_text(const std::string& text, size_t bytes);

/// A double truncated towards zero to whole ms, held within what a long holds; not a number counts as 0.
long whole_ms(double ms);

}  // namespace tq
