#include "model/bars.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "host/transport.h"
#include "instance/change.h"
#include "instance/prseq.h"
#include "instance/utilities.h"

namespace tq {

namespace {

constexpr double usual_whole_note = 4000, quarters = 4, minute = 60000;  // ms
constexpr long no_end = 1L << 52;  // more bars than a double could number

Measure bar_of(const MeasureSpan& span, long index) {
    auto nth = static_cast<double>(index - span.firstmeasure);
    return {index, span.start + nth * span.length, span.start + (nth + 1) * span.length, span.beats,
            span.notevalue};
}

bool is_note_value(long value) {
    return value >= 1 && value <= 128 && std::has_single_bit(static_cast<unsigned long>(value));
}

}  // namespace

void prseq_bar(Prseq& object, long bar, long beats, long notevalue) {
    Meter& meter = object.meter;
    if (!is_note_value(notevalue) || beats < 1 || bar < meter.firstbarnumber) {
        object_error(object, "bad value");
        return;
    }
    TQ_Prseq_Meter_AddBarRegion(meter, bar - meter.firstbarnumber, beats, notevalue);
    TQ_Prseq_Meter_CalculateMeasures(meter, object.timelinelength);
    prseq_show(object, Change::Meter);
}

void let_bars_follow_tempo(Prseq& object, bool on) {
    object.meter.followstempo = on;
    follow_tempo(object);
}

double kept_time(const Prseq& object, double ms) {
    constexpr double rounding = 1e-6;  // ms, more than what computing leaves behind
    const double whole = std::round(ms);
    return object.meter.followstempo && std::abs(ms - whole) > rounding ? ms : whole;
}

void follow_tempo(Prseq& object) {
    Meter& meter = object.meter;
    const double length =
        meter.followstempo ? quarters * minute / itm_gettempo(*object.transport) : usual_whole_note;
    if (length == meter.wholenote) return;
    meter.wholenote = length;
    TQ_Prseq_Meter_CalculateMeasures(meter, object.timelinelength);
    prseq_show(object, Change::Meter);
}

void begin_meter(Prseq& object) {
    object.meter.barregions.clear();
    let_bars_follow_tempo(object, object.bars_follow_tempo);
    prseq_bar(object, object.meter.firstbarnumber, 4, 4);
}

void TQ_Prseq_Meter_AddBarRegion(Meter& meter, long measure, long beats, long notevalue) {
    auto& regions = meter.barregions;
    auto found = std::lower_bound(regions.begin(), regions.end(), measure,
                                  [](const BarRegion& region, long m) { return region.measure < m; });
    if (found != regions.end() && found->measure == measure)
        *found = {measure, beats, notevalue};
    else
        regions.insert(found, {measure, beats, notevalue});
}

const BarRegion* TQ_Prseq_Meter_FindBarRegionFromBarNumber(const Meter& meter, long measure) {
    for (const BarRegion& region : meter.barregions)
        if (region.measure == measure) return &region;
    return nullptr;
}

void TQ_Prseq_Meter_CalculateMeasures(Meter& meter, double timelinelength) {
    meter.spans.clear();
    double start = 0;
    long first = 0;
    for (size_t r = 0; r < meter.barregions.size() && start <= timelinelength; ++r) {
        const BarRegion& region = meter.barregions[r];
        double length =
            static_cast<double>(region.beats) / static_cast<double>(region.notevalue) * meter.wholenote;
        long next_change = r + 1 < meter.barregions.size() ? meter.barregions[r + 1].measure : no_end;
        // A bar that starts exactly at the timeline's end is made.
        double left =
            std::min(std::floor((timelinelength - start) / length) + 1, static_cast<double>(no_end));
        long count = std::min(static_cast<long>(left), next_change - first);
        meter.spans.push_back({first, count, start, length, region.beats, region.notevalue});
        first += count;
        start += static_cast<double>(count) * length;
    }
}

long first_beat(const Meter& meter) {
    return meter.barregions.empty() ? BarRegion{}.notevalue : meter.barregions.front().notevalue;
}

long measure_count(const Meter& meter) {
    return meter.spans.empty() ? 0 : meter.spans.back().firstmeasure + meter.spans.back().count;
}

Measure measure_at(const Meter& meter, long index) {
    auto behind = std::upper_bound(meter.spans.begin(), meter.spans.end(), index,
                                   [](long i, const MeasureSpan& span) { return i < span.firstmeasure; });
    return bar_of(*std::prev(behind), index);
}

std::optional<Measure> TQ_Prseq_Meter_GetMeasureFromPosition(const Meter& meter, double position) {
    auto behind = std::upper_bound(meter.spans.begin(), meter.spans.end(), position,
                                   [](double p, const MeasureSpan& span) { return p < span.start; });
    if (behind == meter.spans.begin()) return {};
    const MeasureSpan& span = *std::prev(behind);
    double nth = std::floor((position - span.start) / span.length);
    if (!(nth < static_cast<double>(span.count))) return {};
    return bar_of(span, span.firstmeasure + static_cast<long>(nth));
}

double TQ_Prseq_Meter_CalculateSnappedNotePosition(const Meter& meter, double position) {
    std::optional<Measure> bar = TQ_Prseq_Meter_GetMeasureFromPosition(meter, position);
    if (!bar) return -1;
    return TQ_Utilities_NearestValue(position, {bar->start, bar->end, bar->beats});
}

}  // namespace tq
