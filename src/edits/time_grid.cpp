#include "edits/time_grid.h"

#include <algorithm>
#include <cmath>

#include "instance/prseq.h"
#include "model/bars.h"

namespace tq {

namespace {

constexpr double last_line = 1e12;  // ms; numbers of later lines would have no room in a double

bool tells_beats(const Prseq& object) {
    return object.timedisplaytype == static_cast<long>(TimeDisplayType::BarsBeats);
}

}  // namespace

bool divides_beats(const Prseq& object) { return object.snap_division > 0 && tells_beats(object); }

TimeGrid::TimeGrid(const Prseq& object, const GridStep& step, double swing)
    : object_(object),
      meter_(step.note || (!step.ms && tells_beats(object)) ? &object.meter : nullptr),
      note_(step.note),
      distance_(step.ms.value_or(object.maindisplay.mslabelincrement / 10)),
      swing_(swing),
      division_(divides_beats(object) ? static_cast<double>(object.snap_division) : 1) {}

std::optional<TimeGrid::Lines> TimeGrid::lines_at(double ms) const {
    if (std::abs(ms) > last_line) return {};
    if (!meter_) return Lines{0, distance_, HUGE_VAL};
    const std::optional<Measure> bar = TQ_Prseq_Meter_GetMeasureFromPosition(*meter_, ms);
    if (!bar) return {};
    const double division = note_ ? 1 / (*note_ * static_cast<double>(bar->notevalue)) : division_;
    const double count = static_cast<double>(bar->beats) * division;
    return Lines{bar->start, (bar->end - bar->start) / count, count};
}

double TimeGrid::line(const Lines& lines, double index) const {
    const bool late = std::fmod(index, 2) != 0 && index < lines.count;
    const double lengths = std::min(index + (late ? swing_ / 2 : 0), lines.count);
    return kept_time(object_, lines.start + lengths * lines.length);
}

double TimeGrid::nearest(double ms) const {
    const std::optional<Lines> lines = lines_at(ms);
    if (!lines) return ms;
    const double index = std::floor((ms - lines->start) / lines->length);
    const double before = line(*lines, index), after = line(*lines, index + 1);
    return ms - before < after - ms ? before : after;
}

double TimeGrid::behind(double ms) const {
    const std::optional<Lines> lines = lines_at(ms);
    if (!lines) return ms;
    constexpr double rounding = 1e-6;  // ms
    double index = std::floor((ms - lines->start) / lines->length);
    while (line(*lines, index) <= ms + rounding && index < lines->count) ++index;
    return line(*lines, index);
}

double TimeGrid::spacing(double ms) const {
    const std::optional<Lines> lines = lines_at(ms);
    return lines ? lines->length : 0;
}

double edited_position(const Prseq& object) {
    constexpr double meant = 0.05;  // ms: what single precision is off by after ten minutes
    const double position = object.linecursor.position;
    const double line = object.meter.followstempo ? TimeGrid(object, {}, 0).nearest(position) : position;
    return kept_time(object, std::abs(line - position) < meant ? line : position);
}

double position_to_insert(const Prseq& object) {
    return object.meter.followstempo ? edited_position(object) : std::trunc(object.linecursor.position);
}

}  // namespace tq
