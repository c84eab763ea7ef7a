// A position in time as text, in the faces that it is shown in.
#pragma once

#include <QString>
#include <optional>

#include "instance/meter.h"

namespace tq {

enum class TimeFace { Milliseconds, MinutesSeconds, BarsBeats };

/// The face's unit, as it stands beside a position: "ms", "m:s.ms", "bars.beats".
const char* unit_of(TimeFace face);
TimeFace face_after(TimeFace face);

/// A position in ms: "61234", "01:01.234", or bar, beat and thousandths of a beat, "31.2.234".
QString position_text(TimeFace face, double ms, const Meter& meter);
/// The position that a text in this face says, in ms; none when it says none. What is left out at the end
/// counts as nothing: "3" is the beginning of the third bar.
std::optional<double> position_of_text(TimeFace face, const QString& text, const Meter& meter);

}  // namespace tq
