#include "shell/edit_messages.h"

#include <fmt/format.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "edits/arrangement.h"
#include "edits/event_edits.h"
#include "edits/selection_edits.h"
#include "edits/song_edits.h"
#include "edits/track_edits.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "interaction/go_to_event.h"
#include "interaction/step_commands.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/select_where.h"
#include "model/tracks.h"
#include "shell/arguments.h"
#include "view/layout.h"

namespace tq {

namespace {

constexpr double day = 24 * 60 * 60 * 1000;  // ms
constexpr double any = 1e12;                 // more than a timeline holds, in ms

/// "1/16" or "1/8T", of a whole note.
std::optional<double> note_value(std::string_view text) {
    constexpr long shortest_note = 1024;
    constexpr double triplet = 2. / 3;
    if (!text.starts_with("1/")) return {};
    const char* const end = text.data() + text.size();
    long parts = 0;
    const auto [at, fault] = std::from_chars(text.data() + 2, end, parts);
    const std::string_view rest(at, static_cast<size_t>(end - at));
    if (fault != std::errc() || parts < 1 || parts > shortest_note || (rest != "" && rest != "T")) return {};
    return (rest == "T" ? triplet : 1) / static_cast<double>(parts);
}

/// In ms, as a note value, or "snap": what time snaps to, as without any.
GridStep grid_step(Arguments& arguments) {
    const std::string word = arguments.word_ahead();
    const std::optional<double> note = note_value(word);
    if (note || word == "snap") {
        arguments.text("GRID");
        return {.note = note};
    }
    return {.ms = arguments.optional_number({"GRID", 1, day})};
}

void quantise(Prseq& object, Arguments& arguments) {
    static constexpr const char* whats[] = {"starts", "ends", "both"};
    const Quantisation how{.grid = grid_step(arguments),
                           .strength = arguments.optional_number({"STRENGTH", 0, 1}).value_or(1),
                           .swing = arguments.optional_number({"SWING", 0, 1}).value_or(0),
                           .what = Quantisation::Ends(arguments.optional_word("the last argument", whats))};
    arguments.end();
    quantise_selection(object, how);
}

void legato(Prseq& object, Arguments& arguments) {
    const double gap = arguments.optional_number({"GAP_MS", 0, day}).value_or(0);
    arguments.end();
    legato_selection(object, gap);
}

void stretch(Prseq& object, Arguments& arguments) {
    const double factor = arguments.number({"FACTOR", 0.001, 1000});
    arguments.end();
    if (!stretch_selection(object, factor)) throw BadArgument{"FACTOR leads beyond what a timeline can hold"};
}

void humanise(Prseq& object, Arguments& arguments) {
    Humanisation how{.time = arguments.number({"TIME_MS", 0, day}),
                     .velocity = arguments.number({"VELOCITY", 0, 127})};
    if (const auto seed = arguments.optional_number({"SEED", 0, 1e9})) how.seed = static_cast<long>(*seed);
    arguments.end();
    humanise_selection(object, how);
}

void transpose(Prseq& object, Arguments& arguments) {
    constexpr double all_keys = 131;
    const double semitones = arguments.number({"SEMITONES", -all_keys, all_keys});
    arguments.end();
    move_selection(object, 0, semitones);
}

/// Of a curve that events can have beside "Pitch".
Symbol curve_name(Arguments& arguments) {
    const Symbol name = gensym(arguments.text("NAME"));
    if (name.empty() || name == tq_sym_Pitch) throw BadArgument{"NAME is to be a curve other than \"Pitch\""};
    return name;
}

void curve_fade(Prseq& object, Arguments& arguments) {
    constexpr double full = 127;
    Fade how{.curve = curve_name(arguments),
             .from = arguments.number({"FROM", 0, 1}),
             .to = arguments.number({"TO", 0, 1})};
    how.level = arguments.optional_number({"LEVEL", 0, full}).value_or(full);
    arguments.end();
    fade_selection(object, how);
}

void split(Prseq& object, Arguments& arguments) {
    const std::optional<double> position = arguments.optional_number({"MS", 0, any});
    arguments.end();
    split_selection(object, position);
}

void velocity_scale(Prseq& object, Arguments& arguments) {
    const double factor = arguments.number({"FACTOR", -127, 127});
    const double offset = arguments.optional_number({"OFFSET", -16129, 16129}).value_or(0);
    arguments.end();
    scale_velocities(object, factor, offset);
}

void velocity_ramp(Prseq& object, Arguments& arguments) {
    const double from = arguments.number({"FROM", 0, 127}), to = arguments.number({"TO", 0, 127});
    arguments.end();
    ramp_velocities(object, from, to);
}

struct QualityRow {
    const char *low, *high;
    double least, most;
};

void select_where(Prseq& object, Arguments& arguments) {
    static constexpr const char* qualities[] = {"pitch", "velocity", "time", "label"};
    static constexpr QualityRow numbers[] = {
        {"LOW", "HIGH", -any, any}, {"LOW", "HIGH", -any, any}, {"FROM", "TO", -any, any}};
    static constexpr const char* hows[] = {"only", "add", "remove", "within"};
    const size_t quality = arguments.word("the first argument", qualities);
    EventsWhere where{.quality = EventsWhere::Quality(quality)};
    if (where.quality == EventsWhere::Quality::Label) {
        where.label = gensym(arguments.text("TEXT"));
    } else {
        const QualityRow& row = numbers[quality];
        where.low = arguments.number({row.low, row.least, row.most});
        where.high = arguments.number({row.high, row.least, row.most});
        if (where.low > where.high) throw BadArgument{fmt::format("{} is above {}", row.low, row.high)};
    }
    const auto how = SelectHow(arguments.optional_word("the last argument", hows));
    arguments.end();
    select_where(object, where, how);
}

long identifier(Arguments& arguments) { return static_cast<long>(arguments.number({"ID", 1, 1L << 52})); }

Event* event_of(Prseq& object, const char* message, long id) {
    Event* event = TQ_Prseq_Events_FindEventFromID(object, id);
    if (!event) object_error(object, fmt::format("{}: no event with id {}", message, id));
    return event;
}

/// Each once; identifiers that no event has are told.
std::vector<Event*> events_of(Prseq& object, const char* message, const std::vector<long>& identifiers) {
    std::vector<Event*> events;
    std::unordered_set<long> seen;
    for (long id : identifiers)
        if (seen.insert(id).second)
            if (Event* event = event_of(object, message, id)) events.push_back(event);
    return events;
}

void event_delete(Prseq& object, Arguments& arguments) {
    std::vector<long> identifiers;
    do identifiers.push_back(identifier(arguments));
    while (!arguments.empty());
    const std::vector<Event*> events = events_of(object, "event_delete", identifiers);
    delete_events(object, {events.begin(), events.end()});
}

void event_select(Prseq& object, Arguments& arguments) {
    static constexpr const char* hows[] = {"only", "add", "remove"};
    std::vector<long> identifiers;
    do identifiers.push_back(identifier(arguments));
    while (arguments.number_follows());
    const auto how = SelectHow(arguments.optional_word("the last argument", hows));
    arguments.end();
    select_events(object, events_of(object, "event_select", identifiers), how);
}

void event_show(Prseq& object, Arguments& arguments) {
    const long id = identifier(arguments);
    arguments.end();
    if (Event* event = event_of(object, "event_show", id)) go_to_event(object, *event);
}

void time_display_type(Prseq& object, Arguments& arguments) {
    static constexpr const char* names[] = {"ms", "minutes", "bars"};
    const std::optional<double> number = arguments.optional_number({"TYPE", 0, 2});
    const size_t type = number ? static_cast<size_t>(*number) : arguments.word("TYPE", names);
    arguments.end();
    set_time_display_type(object, TimeDisplayType(type));
}

void track_bpf_active(Prseq& object, Arguments& arguments) {
    constexpr double highest = 1L << 52;
    const auto index = static_cast<long>(arguments.number({"INDEX", 0, highest}));
    arguments.end();
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (track && index < std::ssize(track->bpftypes)) return activate_bpf_type(object, index);
    object_error(object, fmt::format("track_bpf_active: the active track has no curve {}", index));
}

void stretch_to_tempo(Prseq& object, Arguments& arguments) {
    const double bpm = arguments.number({"BPM", 1, 10000});
    arguments.end();
    if (!change_song_tempo(object, bpm)) throw BadArgument{"BPM leads beyond what a timeline can hold"};
}

/// The active track, without an index; none, which is told, when there is no such track.
Track* track_of(Prseq& object, const char* message, Arguments& arguments) {
    constexpr double last = 1L << 52;
    const std::optional<double> index = arguments.optional_number({"INDEX", 0, last});
    Track* track = track_at(object, index ? static_cast<long>(*index) : object.activetrack);
    if (!track)
        object_error(object, index ? fmt::format("{}: there is no track {}", message, *index)
                                   : fmt::format("{}: there is no active track", message));
    return track;
}

void track_name(Prseq& object, Arguments& arguments) {
    Track* track = track_of(object, "track_name", arguments);
    const Symbol name = gensym(arguments.rest("NAME"));
    if (track && name.text() != track->name) change_track_name(object, track, name);
}

void track_level(Prseq& object, Arguments& arguments) {
    constexpr double any_level = 1e9;
    Track* track = track_of(object, "track_level", arguments);
    const Symbol name = curve_name(arguments);
    const double level = arguments.number({"LEVEL", -any_level, any_level});
    arguments.end();
    if (track) change_curve_level(object, track, name, level);
}

void time_signature(Prseq& object, Arguments& arguments) {
    constexpr double last_bar = 1e6, most_beats = 128, shortest_note = 128;
    const double bar = arguments.number({"BAR", 1, last_bar}),
                 beats = arguments.number({"BEATS", 1, most_beats}),
                 note = arguments.number({"NOTE", 1, shortest_note});
    arguments.end();
    if (!std::has_single_bit(static_cast<unsigned long>(note)))
        throw BadArgument{"NOTE has to be one of 1, 2, 4, 8, 16, 32, 64, 128"};
    change_time_signature(object, static_cast<long>(bar), static_cast<long>(beats), static_cast<long>(note));
}

template <std::string DocumentInfo::*text>
void document_text(Prseq& object, Arguments& arguments) {
    change_document_text(object, text, arguments.rest("TEXT"));
}

template <void (*edit)(Prseq&)>
void plain(Prseq& object, Arguments& arguments) {
    arguments.end();
    edit(object);
}

struct MessageRow {
    const char* name;
    void (*run)(Prseq&, Arguments&);
};
constexpr MessageRow rows[] = {{"quantise", quantise},
                               {"quantize", quantise},
                               {"legato", legato},
                               {"stretch", stretch},
                               {"reverse", plain<reverse_selection>},
                               {"humanise", humanise},
                               {"humanize", humanise},
                               {"transpose", transpose},
                               {"curve_fade", curve_fade},
                               {"split", split},
                               {"join", plain<join_selection>},
                               {"velocity_scale", velocity_scale},
                               {"velocity_ramp", velocity_ramp},
                               {"select_where", select_where},
                               {"select_invert", plain<invert_selection>},
                               {"event_delete", event_delete},
                               {"event_select", event_select},
                               {"event_show", event_show},
                               {"time_display_type", time_display_type},
                               {"track_bpf_active", track_bpf_active},
                               {"track_level", track_level},
                               {"track_name", track_name},
                               {"stretch_to_tempo", stretch_to_tempo},
                               {"time_signature", time_signature},
                               {"document_title", document_text<&DocumentInfo::title>},
                               {"document_author", document_text<&DocumentInfo::author>},
                               {"document_memo", document_text<&DocumentInfo::memo>},
                               {"loop_repeat", plain<repeat_loop>},
                               {"loop_insert", plain<insert_loop>},
                               {"loop_delete", plain<delete_loop>},
                               {"loop_swap", plain<swap_loop>}};

}  // namespace

void add_edit_messages(Class& c) {
    for (const MessageRow& row : rows)
        c.add({gensym(row.name), [run = row.run](Object& object, Symbol message, AtomSpan atoms) {
                   Arguments arguments(atoms);
                   try {
                       run(static_cast<Prseq&>(object), arguments);
                   } catch (const BadArgument& fault) {
                       object_error(object, "bad argument for message " + message.text() + ": " + fault.text);
                   }
                   return true;
               }});
}

}  // namespace tq
