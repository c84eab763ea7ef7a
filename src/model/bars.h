// Bar regions, and the bars that they make on a grid of 1000 ms a quarter note, or of the tempo's quarters.
#pragma once

#include <optional>

#include "instance/meter.h"

namespace tq {

struct Prseq;

/// Sets the time signature from a bar on (bar numbers count from the meter's first bar number). Posts
/// "bad value" and changes nothing for a note value that is no power of two from 1 to 128, for fewer than 1
/// beat, and for a bar before the first.
void prseq_bar(Prseq& object, long bar, long beats, long notevalue);

/// Whether a quarter note of the bars lasts one of the tempo; else it lasts 1000 ms.
void let_bars_follow_tempo(Prseq& object, bool on);
/// A time that is computed, in ms, as the document holds it: where its bars follow the tempo, lines of bars
/// and beats are seldom at whole ms, and it is kept as it is; else it is rounded to whole ms.
double kept_time(const Prseq& object, double ms);
/// The tempo may be another one.
void follow_tempo(Prseq& object);

/// The meter of a new document: 4/4 from the first bar on.
void begin_meter(Prseq& object);
/// A region at a measure that has one replaces its signature.
void TQ_Prseq_Meter_AddBarRegion(Meter& meter, long measure, long beats, long notevalue);
const BarRegion* TQ_Prseq_Meter_FindBarRegionFromBarNumber(const Meter& meter, long measure);
/// Computes the bars up to and including the one that starts at or before `timelinelength` ms. Done again
/// when the timeline grows only where the bars follow the tempo.
void TQ_Prseq_Meter_CalculateMeasures(Meter& meter, double timelinelength);

/// The note value of the first bar's beats.
long first_beat(const Meter& meter);
long measure_count(const Meter& meter);
/// The bar of an index from 0 to measure_count() - 1.
Measure measure_at(const Meter& meter, long index);
/// The bar with start <= position < end (ms), or none.
std::optional<Measure> TQ_Prseq_Meter_GetMeasureFromPosition(const Meter& meter, double position);
/// The position moved to the nearest beat of its bar, the bar's end included; −1 in no bar.
double TQ_Prseq_Meter_CalculateSnappedNotePosition(const Meter& meter, double position);

}  // namespace tq
