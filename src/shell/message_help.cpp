#include "shell/message_help.h"

#include <algorithm>

namespace tq {

namespace {

constexpr MessageHelp messages[] = {
    {"zoom_vert", "ZOOM", "zooms in pitch, 0 to 1"},
    {"zoom_hor", "ZOOM", "zooms in time, 0 to 1"},
    {"scroll_vert", "SCROLL", "scrolls in pitch, 0 to 1"},
    {"scroll_hor", "SCROLL", "scrolls in time, 0 to 1"},
    {"zoom_in", "", "zooms in by a step"},
    {"zoom_out", "", "zooms out by a step"},
    {"zoom_to_selection", "", "shows the selected events as large as they can be"},
    {"zoom_out_all", "", "shows the whole document"},
    {"cyclerange", "START END", "where the loop is, in ms"},
    {"cycle", "0|1", "turns the loop off or on"},
    {"loop_repeat", "", "puts what is in the loop, on all tracks, behind it once more"},
    {"loop_insert", "", "time as long as the loop comes before what is in it"},
    {"loop_delete", "", "takes out what is in the loop, on all tracks, and its time"},
    {"loop_swap", "", "what is in the loop, on all tracks, changes places with as much behind it"},
    {"time_display_type", "ms|minutes|bars", "what the ruler tells"},
    {"mouse_mode", "MODE", "what the mouse does in the main display"},
    {"track_active", "INDEX", "makes the track the active one"},
    {"track_add", "[NAME]", "adds a track, which becomes the active one"},
    {"track_delete", "INDEX", "deletes the track"},
    {"track_color", "HUE", "the active track's colour, 0 to 1"},
    {"track_visible", "[INDEX] 0|1", "hides or shows the active track, or that of the index, from 0"},
    {"track_mute", "[INDEX] 0|1", "lets the active track sound or mutes it, or that of the index, from 0"},
    {"track_solo", "[INDEX] 0|1", "the synthesiser plays only tracks that are solo, if any is"},
    {"track_bpf_active", "INDEX", "which curve of the active track is shown and edited"},
    {"track_name", "[INDEX] TEXT ...", "names the active track, or that of the index, from 0"},
    {"track_level", "[INDEX] NAME LEVEL",
     "the level of all curves of that name on the active track, or that of the index, from 0: Volume, Pan "
     "..."},
    {"track_destination", "[INDEX] [NAME]",
     "the receiver that gets the track's events; without a name, outlet 0"},
    {"track_bpf_add", "NAME MIN MAX DEFAULT", "gives every event of the active track a curve"},
    {"track_parameter_add", "NAME MIN MAX DEFAULT STEPS",
     "gives every event of the active track a value; 0 steps: continuous"},
    {"track_dump", "", "reports the tracks out of outlet 2"},
    {"position", "MS", "moves the play position"},
    {"event", "[WHAT VALUE ...]", "makes an event, or changes the one with the id"},
    {"event_delete", "ID ...", "deletes events by their identifiers"},
    {"event_select", "ID ... [only|add|remove]", "selects events by their identifiers, on any track"},
    {"event_show", "ID", "goes to the event: selects it, on its track, and scrolls it into view"},
    {"quantise", "[GRID] [STRENGTH] [SWING] [starts|ends|both]",
     "draws the selected events to a grid: ms, 1/16, 1/8T, or snap, which is what time snaps to"},
    {"quantize", "[GRID] [STRENGTH] [SWING] [starts|ends|both]", "the same"},
    {"legato", "[GAP_MS]", "lets each selected event last until the next one"},
    {"stretch", "FACTOR", "makes the selection so many times as long"},
    {"stretch_to_tempo", "BPM", "changes the tempo; all events and the loop keep their places in the bars"},
    {"reverse", "", "turns the selection around in time"},
    {"humanise", "TIME_MS VELOCITY [SEED]", "moves the selected events a little, by chance"},
    {"humanize", "TIME_MS VELOCITY [SEED]", "the same"},
    {"split", "[MS]", "cuts what sounds of the selection at a time, or at the play position"},
    {"join", "", "makes one event of selected ones that touch"},
    {"transpose", "SEMITONES", "makes the selected events so much higher, or lower"},
    {"curve_fade", "NAME FROM TO [LEVEL]",
     "fades the selection's curves of that name over its time, from 0 to 1: Expression 1 0"},
    {"velocity_scale", "FACTOR [OFFSET]", "multiplies the velocities of the selection, and adds to them"},
    {"velocity_ramp", "FROM TO", "a crescendo over the selection"},
    {"select_where", "pitch|velocity|time LOW HIGH [only|add|remove|within]",
     "selects events of the active track by value; select_where label TEXT by label"},
    {"select_invert", "", "selects what is not selected, and the other way round"},
    {"undo", "", "takes the last step back"},
    {"redo", "", "does again what was taken back"},
    {"undoredo", "SLOT", "goes to a step of the history; -1 is before the first one"},
    {"undoredo_clear", "", "forgets the history"},
    {"undoredo_dump", "", "reports the history"},
    {"maxtime", "MS", "makes the timeline longer"},
    {"read", "[FILE]", "reads a document in place of this one; without a file, a dialog asks"},
    {"readagain", "", "reads the document's file again"},
    {"write", "[FILE]", "writes the document; without a file, a dialog asks"},
    {"writeagain", "", "writes the document into its file"},
    {"int", "1|0", "plays, stops"},
    {"time_signature", "BAR BEATS NOTE",
     "how many beats of which note value a bar has, from a bar on: 1 3 4"},
    {"document_title", "TEXT ...", "what the song is called"},
    {"document_author", "TEXT ...", "who made it"},
    {"document_memo", "TEXT ...", "what is to be known about it"},
    {"document_inspector_open", "", "opens the form of the document"},
    {"document_inspector_close", "", "closes it"},
    {"track_inspector_open", "", "opens the form of the active track"},
    {"track_inspector_close", "", "closes it"},
    {"event_inspector_open", "", "opens the form of the selected event"},
    {"event_inspector_close", "", "closes it"},
    {"dump_selected", "", "sends the selected events out of outlet 1"},
    {"getdirty", "", "asks whether there are changes that are not saved"},
    {"getmaxtime", "", "asks for the timeline's length in ms"},
    {"getcycle", "", "asks whether the loop is on"},
    {"getcyclerange", "", "asks where the loop is"},
};

constexpr MessageHelp event_parts[] = {
    {"id", "N", "changes the event with this identifier; without it, an event is made"},
    {"start", "MS", "when it begins"},
    {"duration", "MS", "how long it lasts"},
    {"track", "INDEX", "on which track it is"},
    {"label", "TEXT", "what stands on it"},
    {"<note>", "PITCH [VELOCITY] </note>", "pitch 60 is middle C"},
    {"<bpf>", "NAME MS VALUE ... </bpf>", "the points of a curve"},
    {"<parameter>", "NAME VALUE ... </parameter>", "values"},
    {"<message>", "WORDS </message>", "is sent along with the event"},
    {"<buffer>", "[NAME [0|1]] </buffer>", "the sound that it plays; 1: fitted to the event; empty: none"},
};

}  // namespace

std::span<const MessageHelp> message_help() { return messages; }

const MessageHelp* find_message_help(std::string_view name) {
    const auto row =
        std::ranges::find(messages, name, [](const MessageHelp& r) { return std::string_view(r.name); });
    return row == std::end(messages) ? nullptr : row;
}

std::span<const MessageHelp> event_help() { return event_parts; }

}  // namespace tq
