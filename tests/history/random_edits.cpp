#include "history/random_edits.h"

#include "edits/event_edits.h"
#include "edits/track_edits.h"
#include "edits/type_edits.h"
#include "edits/value_edits.h"
#include "host/modifiers.h"
#include "instance/symbols.h"
#include "interaction/commands.h"
#include "interaction/mouse.h"
#include "model/tracks.h"
#include "view/maindisplay.h"
#include "view/synchronise.h"

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
    CurveOf any_curve() {
        EventRef event = any_event();
        return {event, event ? event->bpfs[below(event->bpfs.size())] : nullptr};
    }

    void command() {
        static constexpr Command some[] = {
            Command::Cut,       Command::Copy,           Command::Copy,       Command::Paste,
            Command::Paste,     Command::Delete,         Command::SelectAll,  Command::SelectNext,
            Command::SelectAll, Command::SelectPrevious, Command::SelectNext, Command::Paste};
        run_command(object, some[below(std::size(some))]);
    }

    /// Presses, drags and releases, somewhere on an event or beside all.
    void gesture() {
        static constexpr MouseMode modes[] = {MouseMode::Select, MouseMode::Select, MouseMode::Select,
                                              MouseMode::Select, MouseMode::Slice,  MouseMode::Glue};
        object.maindisplay.mousemode = modes[below(std::size(modes))];
        object.snaptime = below(2);
        object.snappitch = below(2);
        const Rect display = object.maindisplay.rect;
        Point at{display.x + number(500), display.y + number(1000)};
        if (EventRef event = any_event(); event && below(5)) {
            const Rect rect = TQ_Prseq_Events_Rect(object, *event);
            const double places[] = {rect.width / 2, rect.width / 3, 1, rect.width - 1};
            at = {display.x + rect.x + places[below(4)],
                  display.y + rect.y + rect.height / 2 - object.maindisplay.verticalscroll};
        }
        unsigned modifiers = modifier_left_button;
        if (below(4) == 0) modifiers |= modifier_shift;
        prseq_mousedown(object, at.x, at.y, modifiers);
        if (below(3) == 0) modifiers |= modifier_option;
        for (size_t steps = below(4); steps > 0; --steps)
            prseq_mousedrag(object, display.x - 20 + number(300), display.y - 20 + number(1000), modifiers);
        if (below(9) == 0) return roll_back_gesture(object);
        if (below(9) == 0) return;  // what comes next ends it
        prseq_mouseup(object, at.x, at.y, modifiers);
    }

    /// In the parameter display.
    void paint_values() {
        object.parameterdisplay = true;
        synchronise_view(object);
        const Rect lane = object.layout[Part::ParameterDisplay];
        const EventRef event = any_event();
        const double x = lane.x + 1 + (event ? TQ_Prseq_Events_Rect(object, *event).x : number(300));
        prseq_mousedown(object, x, lane.y + number(80), modifier_left_button);
        for (size_t steps = below(4); steps > 0; --steps)
            prseq_mousedrag(object, lane.x + number(600), lane.y + number(99) - 9, modifier_left_button);
        if (below(9) == 0) return roll_back_gesture(object);
        prseq_mouseup(object, x, lane.y, modifier_left_button);
    }

    void glue() {
        EventRef event = any_event();
        EventRef next = event ? event->track->events.next(*event) : nullptr;
        if (!next) return;
        change_event_values(object,
                            {{event, event->velocity, number(128)}, {next, next->velocity, number(128)}},
                            tq_sym_Velocity);
        glue_event_to_next(object, event);
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

    void change_points() {
        const CurveOf curve = any_curve();
        if (!curve.bpf) return;
        BpfPoints points = curve.bpf->points;
        switch (below(4)) {
            case 0:
                for (BpfPoint& point : points) point.y = number(100) / 100;
                return move_bpf_points(object, curve, points, points.size());
            case 1:
                if (points.size() < 3) return;
                points.erase(points.begin() + 1,
                             points.begin() + static_cast<long>(2 + below(points.size() - 2)));
                return delete_bpf_points(object, curve, points);
            default:
                add_bpf_point(object, curve, {(1 + number(999)) / 1000, number(100) / 100});
                return;
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

constexpr void (Edits::*edits[])() = {&Edits::command,       &Edits::command,       &Edits::command,
                                      &Edits::gesture,       &Edits::gesture,       &Edits::gesture,
                                      &Edits::gesture,       &Edits::glue,          &Edits::change_state,
                                      &Edits::change_values, &Edits::change_types,  &Edits::change_types,
                                      &Edits::change_state,  &Edits::change_points, &Edits::change_looks,
                                      &Edits::paint_values,  &Edits::change_points};

}  // namespace

void random_edit(Prseq& object, std::mt19937& random) {
    Edits some{object, random};
    (some.*edits[some.below(std::size(edits))])();
}

}  // namespace tq
