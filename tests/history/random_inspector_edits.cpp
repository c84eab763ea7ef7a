#include "history/random_inspector_edits.h"

#include "edits/track_edits.h"
#include "edits/type_edits.h"
#include "edits/value_edits.h"
#include "instance/symbols.h"
#include "model/tracks.h"

namespace tq {
namespace {

struct Edits {
    Prseq& object;
    std::mt19937& random;

    size_t below(size_t count) { return random() % count; }
    double number(size_t count) { return static_cast<double>(below(count)); }
    Symbol name(const char* stem, size_t count) { return gensym(stem + std::to_string(below(count))); }

    TrackRef active() const { return TQ_Prseq_Tracks_GetActiveTrack(object); }
    EventRef any_event() {
        const TrackRef track = active();
        return track && !track->events.empty() ? track->events.at(below(track->events.size())) : nullptr;
    }

    void change_state() {
        EventRef event = any_event();
        if (!event) return;
        switch (below(6)) {
            case 0:
                return change_event_label(object, event, name("l", 9));
            case 1:
                return change_event_message(object, event, name("m ", 9));
            case 2:
                return change_event_buffer(object, event, gensym("sound"));
            case 3:
                return change_event_buffer_adapt(object, event, below(2));
            case 4:
                return change_event_buffer_start(object, event, number(9));
            default:
                return change_event_buffer_end(object, event, number(9));
        }
    }

    void change_values() {
        const TrackRef track = active();
        EventRef event = any_event();
        if (!event) return;
        if (!event->parametervalues.empty() && below(2)) {
            const ParameterValue& value = event->parametervalues[below(event->parametervalues.size())];
            return change_event_values(object, {{event, value.value, number(11)}}, value.name());
        }
        std::vector<ValueChange> changes;
        track->events.for_each([&](Event& e) { changes.push_back({&e, e.velocity, number(128)}); });
        change_event_values(object, std::move(changes), tq_sym_Velocity);
    }

    void change_types() {
        const TrackRef track = active();
        if (!track) return;
        const long parameter = static_cast<long>(below(3)), curve = static_cast<long>(1 + below(3));
        switch (below(5)) {
            case 0:
                return delete_parameter_type(object, track, parameter);
            case 1: {
                ParameterType values;
                values.name = gensym("changed" + std::to_string(random()));
                values.maximum = number(100);
                return change_parameter_type(object, track, parameter, values);
            }
            case 2:
                return add_bpf_type(object, track, {name("c", 3), 0, 1 + number(3), 0});
            case 3:
                return delete_bpf_type(object, track, curve);
            default:
                return change_bpf_type(object, track, curve, {name("changed", 9), 0, 2 + number(100), 0});
        }
    }

    void change_looks() {
        const TrackRef track = active();
        if (track && below(2))
            change_track_hue(object, track, number(10) / 10);
        else if (track)
            change_track_name(object, track, name("name ", 9));
    }
};

constexpr void (Edits::*edits[])() = {&Edits::change_state, &Edits::change_values, &Edits::change_types,
                                      &Edits::change_types, &Edits::change_looks};

}  // namespace

void random_inspector_edit(Prseq& object, std::mt19937& random) {
    Edits some{object, random};
    (some.*edits[some.below(std::size(edits))])();
}

}  // namespace tq
