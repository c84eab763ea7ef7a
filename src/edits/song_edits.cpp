#include "edits/song_edits.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "edits/event_changes.h"
#include "edits/type_edits.h"
#include "history/edit.h"
#include "history/undoredo.h"
#include "host/transport.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/track_info.h"
#include "playback/output.h"
#include "playback/time.h"

namespace tq {

namespace {

double latest_end(const Prseq& object) {
    double end = 0;
    for (const TrackRef& track : object.tracks) end = std::max(end, track->events.latest_end());
    return end;
}

std::vector<EventTimes> stretched_times(const Prseq& object, double factor) {
    std::vector<EventTimes> times;
    for (const TrackRef& track : object.tracks)
        track->events.for_each([&](Event& event) {
            const double start = kept_time(object, event.start * factor),
                         end = kept_time(object, event.end() * factor);
            const double duration = std::max(end - start, std::min(event.duration, shortest_event));
            if (start != event.start || duration != event.duration)
                times.push_back({&event, start, duration});
        });
    return times;
}

bool keeps_places(const Prseq& object) { return object.meter.followstempo && object.events_follow_tempo; }

BpfPoints raised(const BpfPoints& points, double by) {
    BpfPoints higher = points;
    for (BpfPoint& point : higher) point.y = std::clamp(point.y + by, 0., 1.);
    return higher;
}

/// What the curves were before.
std::vector<EventsBefore::Curve> raise_curves(const Track& track, Symbol name, double by) {
    std::vector<EventsBefore::Curve> curves;
    if (by == 0) return curves;
    track.events.for_each([&](Event& event) {
        Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, name);
        if (bpf) curves.push_back({{&event, bpf}, raised(bpf->points, by)});
    });
    exchange_points(curves);
    return curves;
}

}  // namespace

bool change_tempo(Prseq& object, double bpm) {
    if (keeps_places(object)) return change_song_tempo(object, bpm);
    if (bpm == itm_gettempo(*object.transport)) return true;
    Edit edit(object, Edit::Unrecorded{Change::LineCursor});  // documents hold their tempo
    change_transport_tempo(object, bpm);
    return true;
}

bool change_song_tempo(Prseq& object, double bpm) {
    end_what_is_under_way(object);
    if (latest_end(object) * itm_gettempo(*object.transport) / bpm > longest_timeline) return false;
    if (is_last_step_a_tempo(object)) take_back_last_item(object);
    SongBefore before{{}, itm_gettempo(*object.transport), object.cycle};
    const double factor = before.tempo / bpm;
    if (factor == 1) return true;
    Edit edit(object, Change::Events);
    before.times = retime(object, stretched_times(object, factor));
    change_transport_tempo(object, bpm);
    set_cycle_range(object, kept_time(object, before.cycle.start * factor),
                    kept_time(object, before.cycle.end * factor));
    TQ_Prseq_Output_CycleRange(object);
    prseq_show(object, Change::Cycle);
    record_tempo_of_song(edit, std::move(before));
    return true;
}

double curve_level(const Track& track, const BpfType& type) {
    const Event* first = track.events.empty() ? nullptr : track.events.at(0);
    const Bpf* bpf = first ? TQ_Prseq_Events_GetBpfWithGivenName(*first, type.name) : nullptr;
    if (!bpf) return type.default_;
    return type.minimum + bpf->points.front().y * (type.maximum - type.minimum);
}

void change_curve_level(Prseq& object, const TrackRef& track, Symbol name, double level) {
    constexpr double full = 127;
    BpfTypeRef type = TQ_Prseq_Tracks_GetBpfTypeWithGivenName(*track, name);
    if (!type) return add_bpf_type(object, track, {name, 0, full, std::clamp(level, 0., full)});
    end_what_is_under_way(object);
    if (is_last_step_a_level_of(object, *type)) take_back_last_item(object);
    level = std::clamp(level, std::min(type->minimum, type->maximum), std::max(type->minimum, type->maximum));
    const double by = level - curve_level(*track, *type), range = type->maximum - type->minimum;
    if (range == 0 || (by == 0 && type->default_ == level)) return;
    const auto make = [&] {
        const double previous = std::exchange(type->default_, level);
        return std::pair(previous, raise_curves(*track, name, by / range));
    };
    if (is_last_step_the_coming_of(object, *type)) {
        Edit edit(object, Edit::MoreOfLastItem{});
        make();
    } else {
        Edit edit(object, Change::Types);
        auto [previous, curves] = make();
        record_curve_level(edit, track, type, previous, std::move(curves));
    }
    prseq_show(object, Change::Types);
    prseq_show(object, Change::Events);
    TQ_Prseq_Tracks_OutputTrackInfo(object);
}

void change_time_signature(Prseq& object, long bar, long beats, long notevalue) {
    Edit edit(object, Edit::Unrecorded{Change::Meter});
    const auto same = [](const BarRegion& a, const BarRegion& b) {
        return a.measure == b.measure && a.beats == b.beats && a.notevalue == b.notevalue;
    };
    const std::vector<BarRegion> before = object.meter.barregions;
    prseq_bar(object, bar, beats, notevalue);
    if (std::ranges::equal(before, object.meter.barregions, same)) edit.nothing();
}

void change_document_text(Prseq& object, std::string DocumentInfo::*text, std::string changed) {
    if (changed == object.info.*text) return;
    Edit edit(object, Edit::Unrecorded{Change::Nothing});
    object.info.*text = std::move(changed);
}

}  // namespace tq
