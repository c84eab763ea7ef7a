#include <algorithm>
#include <array>
#include <utility>

#include "edits/type_edits.h"
#include "edits/value_edits.h"
#include "history/edit.h"
#include "history/recorders.h"
#include "inspectors/curve_field.h"
#include "inspectors/field_gesture.h"
#include "inspectors/fields.h"
#include "inspectors/patcher_helpers.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/events.h"

namespace tq {

namespace {

// --- texts ---

void show_id(const Inspected& at, Field& field) { field.set({at.event()->id}); }

template <Symbol Event::*text>
void show_text(const Inspected& at, Field& field) {
    field.set({(*at.event()).*text});
}
template <Symbol Event::*text, void (*edit)(Prseq&, const EventRef&, Symbol)>
void change_text(const Inspected& at, const Field& field, const std::string&) {
    const Symbol changed = gensym(TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
    if (changed != (*at.event()).*text) edit(at.object, at.event(), changed);
}

// --- numbers ---

void write_start(Prseq&, Event& event, double value) {
    TQ_Prseq_Events_SetEventStart(event, std::max(value, 0.));
}
void write_duration(Prseq&, Event& event, double value) {
    TQ_Prseq_Events_SetEventDuration(event, std::max(value, 1.));
}
void write_pitch(Prseq&, Event& event, double value) {
    event.pitch = std::clamp(value, 0., Prseq::maximumpitch);
}
/// No frequency is a pitch where that of the base is none.
void write_frequency(Prseq& object, Event& event, double value) {
    if (value > 0 && object.base_frequency > 0)
        write_pitch(object, event, TQ_Utilities_ConvertHzToMidi(object, value));
}
void write_velocity(Prseq&, Event& event, double value) { event.velocity = std::clamp(value, 0., 127.); }
/// A range lies within its buffer, and begins before it ends.
void write_bufferstart(Prseq&, Event& event, double value) {
    BufferRange& range = event.make_link();
    range.start = std::clamp(value, 0., std::max(range.end, 0.));
}
void write_bufferend(Prseq&, Event& event, double value) {
    BufferRange& range = event.make_link();
    range.end = std::clamp(value, range.start, std::max(range.length, range.start));
}

std::vector<UndoEventSnapshot> snapshot_of(const EventRef& event, const EventState& before) {
    return {{before.start, before.duration, before.pitch, event,
             before.link && event->buffer() ? std::optional(before.link->end) : std::nullopt}};
}

template <void (*recorder)(Edit&, std::vector<UndoEventSnapshot>)>
void record_snapshot(Edit& edit, const EventRef& event, const EventState& before) {
    recorder(edit, snapshot_of(event, before));
}
template <void (*recorder)(Edit&, EventRef, EventState)>
void record_state(Edit& edit, const EventRef& event, const EventState& before) {
    recorder(edit, event, before);
}
void record_velocity(Edit& edit, const EventRef& event, const EventState& before) {
    TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsVelocity(edit, {{event, before.velocity, event->velocity}});
}

constexpr auto record_move = record_snapshot<TQ_Prseq_Undoredo_AddUndoRedoItem_MoveEvents>;
constexpr TurnedNumber start{write_start,
                             record_snapshot<TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsStart>},
    duration{write_duration, record_snapshot<TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsLength>},
    pitch{write_pitch, record_move}, frequency{write_frequency, record_move},
    velocity{write_velocity, record_velocity},
    bufferstart{write_bufferstart, record_state<TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart>},
    bufferend{write_bufferend, record_state<TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd>};

template <const TurnedNumber& number>
void turn(const Inspected& at, const Field& field, const std::string& what) {
    turn_number(at.object, number, at.event(), field, what);
}

template <double Event::*value>
void show_number(const Inspected& at, Field& field) {
    field.set({(*at.event()).*value});
}
void show_frequency(const Inspected& at, Field& field) {
    field.set({TQ_Utilities_ConvertMidiToHz(at.object, at.event()->pitch)});
}
void show_base(const Inspected& at, Field& field) { field.set({at.object.base_frequency}); }
void change_base(const Inspected& at, const Field& field, const std::string& what) {
    if (what == "value") object_method_typed(at.object, gensym("base_frequency"), field.value());
}

// --- the buffer ---

void show_buffer(const Inspected& at, Field& field) { field.set({at.event()->link().name}); }
void change_buffer(const Inspected& at, const Field& field, const std::string&) {
    const Symbol name = gensym(TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
    if (name != at.event()->link().name) change_event_buffer(at.object, at.event(), name);
}

template <double BufferRange::*value>
void show_range(const Inspected& at, Field& field) {
    field.set({at.event()->link().*value});
    field.enable(at.event()->buffer());
}
void show_adapt(const Inspected& at, Field& field) {
    field.set({long{at.event()->link().adapt}});
    field.enable(at.event()->buffer());
}
void change_adapt(const Inspected& at, const Field& field, const std::string&) {
    const bool adapt = field.value().front().as_long() != 0;
    if (adapt != at.event()->link().adapt) change_event_buffer_adapt(at.object, at.event(), adapt);
}

// --- curves ---

void show_bpf_types(const Inspected& at, Field& field) {
    std::vector<std::string> names;
    for (const BpfRef& bpf : at.event()->bpfs) names.push_back(bpf->name().text());
    field.set_choices(std::move(names));
    field.set({at.event()->track ? at.event()->track->activebpfindex : 0L});
}
void change_bpf_type(const Inspected& at, const Field& field, const std::string&) {
    activate_bpf_type(at.object, field.value().front().as_long());
}

constexpr FieldRow rows[] = {
    {"eventEd_ID", show_id, change_nothing},
    {"eventEd_label", show_text<&Event::label>, change_text<&Event::label, change_event_label>},
    {"eventEd_start", show_number<&Event::start>, turn<start>},
    {"eventEd_duration", show_number<&Event::duration>, turn<duration>},
    {"eventEd_pitch", show_number<&Event::pitch>, turn<pitch>},
    {"eventEd_frequency", show_frequency, turn<frequency>},
    {"eventEd_freq_base", show_base, change_base},
    {"eventEd_velocity", show_number<&Event::velocity>, turn<velocity>},
    {"eventEd_buffer", show_buffer, change_buffer},
    {"eventEd_bufferadapt", show_adapt, change_adapt},
    {"eventEd_bufferstart", show_range<&BufferRange::start>, turn<bufferstart>},
    {"eventEd_bufferend", show_range<&BufferRange::end>, turn<bufferend>},
    {"eventEd_bpftypes", show_bpf_types, change_bpf_type},
    {"eventEd_bpfeditor", show_curve, change_curve},
    {"eventEd_message", show_text<&Event::message>, change_text<&Event::message, change_event_message>},
};

}  // namespace

std::span<const FieldRow> event_fields() { return rows; }

}  // namespace tq
