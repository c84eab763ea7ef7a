#include "interaction/commands.h"

#include <algorithm>

#include "edits/arrangement.h"
#include "edits/clipboard.h"
#include "edits/event_edits.h"
#include "edits/selection_edits.h"
#include "edits/time_grid.h"
#include "edits/timeline_edits.h"
#include "edits/track_edits.h"
#include "edits/type_edits.h"
#include "file/document_messages.h"
#include "history/edit.h"
#include "history/undoredo.h"
#include "instance/change.h"
#include "instance/prseq.h"
#include "instance/utilities.h"
#include "interaction/mouse_modes.h"
#include "interaction/replace_document.h"
#include "interaction/step_commands.h"
#include "model/bars.h"
#include "model/bpf_editor.h"
#include "model/select_where.h"
#include "model/selected_events.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "playback/output.h"
#include "playback/time.h"
#include "view/layout.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

constexpr size_t longest_text = 254;  // bytes

std::string with_name(const char* verb, const std::optional<std::string>& name) {
    return name ? cut_text(std::string(verb) + " " + *name, longest_text) : verb;
}
std::string undo_text(const Prseq& object) { return with_name("Undo", TQ_Prseq_Undoredo_UndoMenu(object)); }
std::string redo_text(const Prseq& object) { return with_name("Redo", TQ_Prseq_Undoredo_RedoMenu(object)); }

bool always(const Prseq&) { return true; }
bool never(const Prseq&) { return false; }
bool has_tracks(const Prseq& object) { return !object.tracks.empty(); }
bool has_file(const Prseq& object) { return has_tracks(object) && !object.info.filename.empty(); }
bool can_undo(const Prseq& object) { return TQ_Prseq_Undoredo_UndoMenu(object).has_value(); }
bool can_redo(const Prseq& object) { return TQ_Prseq_Undoredo_RedoMenu(object).has_value(); }
bool is_zoomed_in(const Prseq& object) {
    return object.horscrollbar.zoomunityvalue > 0 || object.vertscrollbar.zoomunityvalue > 0;
}
bool can_paste(const Prseq& object) { return TQ_Prseq_Clipboard_GetItemToPaste(object); }
bool has_selection(const Prseq& object) { return has_selected_events(object); }
bool has_events(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    return track && !track->events.empty();
}

bool has_song(const Prseq& object) {
    return std::ranges::any_of(object.tracks, [](const TrackRef& track) { return !track->events.empty(); });
}

void open_file(Prseq& object) { replace_document(object, Replacement::Opened); }
void new_document(Prseq& object) { replace_document(object, Replacement::New); }

void select_only(Prseq& object, Event* event) {
    if (!event) return;
    deselect_all_events(object);
    TQ_Prseq_Tracks_SelectEvent2(object, *event);
    TQ_Prseq_Output_OutputSelectedEvents(object);
    prseq_show(object, Change::Events);
}

/// Whether keys and the context menu are about the points of a curve.
bool edits_points(const Prseq& object) { return edits_curves(object.maindisplay.mousemode); }

void delete_selected(Prseq& object) {
    if (!edits_points(object)) return prseq_deleteselectedevents(object);
    if (const CurveOf curve = edited_bpf(object); curve.bpf)
        TQ_Prseq_Events_DeleteSelectedBpfPoints(object, curve);
}

void select_all_events(Prseq& object) {
    TQ_Prseq_Tracks_SelectAllEvents(object, object.activetrack);
    prseq_show(object, Change::Events);
}

void select_all_of_all_tracks(Prseq& object) {
    select_all_tracks(object);
    list_selected_events(object);
    prseq_show(object, Change::Events);
}

/// On all visible tracks.
void select_loop(Prseq& object) {
    select_all_starting(object, std::min(object.cycle.start, object.cycle.end),
                        std::max(object.cycle.start, object.cycle.end));
}

void select_all_silently(Prseq& object) {
    if (!edits_points(object)) return select_all_events(object);
    if (const CurveOf curve = edited_bpf(object); curve.bpf)
        TQ_Prseq_Events_SelectAllPointsInBpf(object, curve.bpf);
    prseq_show(object, Change::Events);
}

void select_all(Prseq& object) {
    select_all_silently(object);
    if (!edits_points(object)) TQ_Prseq_Output_OutputSelectedEvents(object);
}

bool can_select_all(const Prseq& object) { return !edits_points(object) || edited_bpf(object).bpf; }

/// What is being dragged goes back to where it was.
void select_nothing(Prseq& object) {
    prseq_show(object, Change::Events);
    if (object.gesture && object.gesture->edits()) return roll_back_gesture(object);
    if (const CurveOf curve = edited_bpf(object); curve.bpf && edits_points(object))
        return deselect_bpf_points(object, *curve.bpf);
    deselect_all_events(object);
    list_selected_events(object);
}

template <int grid_steps, int semitones>
void move(Prseq& object) {
    move_selection(object, grid_steps, semitones);
}
template <int grid_steps>
void lengthen(Prseq& object) {
    lengthen_selection(object, grid_steps);
}

/// At the play position, as high as what is selected or else as middle C.
void insert_at_position(Prseq& object) {
    constexpr double middle_c = 60;
    const double pitch = list_selected_events(object) ? object.selection.front()->pitch : middle_c;
    select_only(object, insert_event(object, position_to_insert(object), pitch).get());
}
bool can_insert(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    return !track || track->visible;
}

void quantise(Prseq& object) { quantise_selection(object, {}); }
void legato(Prseq& object) { legato_selection(object, 0); }
template <int times, int parts>
void stretch(Prseq& object) {
    stretch_selection(object, double{times} / parts);
}
void humanise(Prseq& object) { humanise_selection(object, {}); }
void split_at_position(Prseq& object) { split_selection(object, {}); }
template <int velocity>
void louder(Prseq& object) {
    scale_velocities(object, 1, velocity);
}
template <int from, int to>
void fade(Prseq& object) {
    fade_selection(object, {.curve = gensym("Expression"), .from = from, .to = to});
}
bool can_select_events(const Prseq& object) {
    return has_events(object) && TQ_Prseq_Tracks_GetActiveTrack(object)->visible;
}

void go_to_start(Prseq& object) { prseq_position(object, 0); }
void go_to_end(Prseq& object) {
    double end = 0;
    for (const TrackRef& track : object.tracks) end = std::max(end, track->events.latest_end());
    prseq_position(object, end);
}

template <MouseMode mode>
bool is_mode(const Prseq& object) {
    return object.maindisplay.mousemode == mode;
}
template <MouseMode mode>
void choose_mode(Prseq& object) {
    prseq_mousemode(object, gensym(mouse_mode_row(mode).name));
}
/// Such a command is called as the mode is.
template <MouseMode mode>
constexpr CommandRow mode_row(Command id, const char* name) {
    constexpr auto text = [](const Prseq&) -> std::string { return mouse_mode_row(mode).label; };
    return {id, name, CommandText(+text), always, is_mode<mode>, choose_mode<mode>};
}

void select_previous(Prseq& object) {
    if (!list_selected_events(object)) return;
    const Event& first = *object.selection.front();
    select_only(object, first.track->events.previous(first));
}

void select_next(Prseq& object) {
    if (!list_selected_events(object)) return;
    const Event& last = *object.selection.back();
    select_only(object, last.track->events.next(last));
}

/// At the end there is nothing left to play: it begins again.
void play_or_stop(Prseq& object) {
    const double position = itm_tickstoms(*object.transport, itm_getticks(*object.transport));
    if (!object.playing && position >= object.timelinelength) prseq_position(object, 0);
    prseq_int(object, !object.playing);
}
bool is_playing(const Prseq& object) { return object.playing; }

void send(Prseq& object, const char* message) { object_method_typed(object, gensym(message), {}); }

/// The inspectors are above this room, and open by their messages.
void open_document_inspector(Prseq& object) { send(object, "document_inspector_open"); }
void open_track_inspector(Prseq& object) { send(object, "track_inspector_open"); }
void open_event_inspector(Prseq& object) { send(object, "event_inspector_open"); }
bool has_one_selected(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    return track && track->events.selected().size() == 1;
}

bool has_active_track(const Prseq& object) { return TQ_Prseq_Tracks_GetActiveTrack(object); }
bool shows_bpfs(const Prseq& object) { return has_active_track(object) && object.showbpfs; }

template <bool Track::*field>
bool is_set(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    return track && (*track).*field;
}
/// Turns it round on the active track, as its message does.
template <bool Track::*field, void (*message)(Prseq&, Symbol, AtomSpan)>
void turn_track(Prseq& object) {
    const Atom other(long{!is_set<field>(object)});
    message(object, Symbol(), {&other, 1});
}

bool bars_follow_tempo(const Prseq& object) { return object.meter.followstempo; }
/// In this document; what new ones begin with is the attribute's.
void turn_bars_follow_tempo(Prseq& object) {
    Edit edit(object, Edit::Unrecorded{Change::Meter});
    let_bars_follow_tempo(object, !object.meter.followstempo);
}

template <bool AttributeFields::*field>
bool is_on(const Prseq& object) {
    return object.*field;
}
template <bool AttributeFields::*field>
constexpr CommandRow toggle(Command id, const char* attribute, const char* text,
                            bool (*enabled)(const Prseq&) = always) {
    return {id, attribute, text, enabled, is_on<field>, nullptr, attribute};
}

template <TimeDisplayType type>
bool shows_times_as(const Prseq& object) {
    return object.timedisplaytype == static_cast<long>(type);
}
template <TimeDisplayType type>
void show_times_as(Prseq& object) {
    set_time_display_type(object, type);
}

void new_track(Prseq& object) { prseq_addtrack(object, {}); }
template <long step>
void activate_track(Prseq& object) {
    prseq_activetrack(object, object.activetrack + step);
}
void delete_track(Prseq& object) { prseq_deletetrack(object, object.activetrack); }

bool edits_bpfs(const Prseq& object) { return object.bpfeditor; }
void edit_bpfs_or_not(Prseq& object) {
    prseq_mousemode(object,
                    gensym(mouse_mode_row(object.bpfeditor ? MouseMode::Select : MouseMode::EditBpf).name));
}
template <bool absolute>
bool bpf_time_is(const Prseq& object) {
    return object.bpfediting.absolutetime == absolute;
}
template <bool absolute>
void set_bpf_time(Prseq& object) {
    object.bpfediting.absolutetime = absolute;
    prseq_show(object, Change::Nothing);  // fields tell times
}

bool has_cycle(const Prseq& object) { return object.cycle.active; }
void cycle_or_not(Prseq& object) {
    prseq_cycle(object, !object.cycle.active);
    TQ_Prseq_Output_Cycle(object);
}
/// From the first start to the last end of what is selected.
void loop_selection(Prseq& object) {
    if (!has_selection(object)) return;
    const TimeSpan span = time_span(all_selected_events(object));
    prseq_cyclerange(object, span.start, span.end);
    TQ_Prseq_Output_CycleRange(object);
    if (!object.cycle.active) cycle_or_not(object);
}
bool follows_line_cursor(const Prseq& object) { return object.linecursor.follow; }
void follow_line_cursor_or_not(Prseq& object) { object.linecursor.follow = !object.linecursor.follow; }

constexpr CommandRow rows[] = {
    {Command::New, "new", "New", has_tracks, never, new_document},
    {Command::Open, "open", "Open...", always, never, open_file},
    {Command::Save, "save", "Save", has_file, never, TQ_Prseq_Json_WriteFromSave},
    {Command::SaveAs, "save_as", "Save As...", has_tracks, never, TQ_Prseq_Json_WriteFromSaveAs},
    {Command::Undo, "undo", undo_text, can_undo, never, prseq_undo},
    {Command::Redo, "redo", redo_text, can_redo, never, prseq_redo},
    {Command::Cut, "cut", "Cut", has_selection, never, TQ_Prseq_Clipboard_CutSelection},
    {Command::Copy, "copy", "Copy", has_selection, never, TQ_Prseq_Clipboard_CopySelection},
    {Command::Paste, "paste", "Paste", can_paste, never, TQ_Prseq_Clipboard_PasteSelection},
    {Command::PasteAtPosition, "paste_at_position", "Paste at the Position", can_paste, never,
     paste_at_position},
    {Command::DeleteEvents, "delete_events", "Delete", has_selection, never, prseq_deleteselectedevents},
    {Command::Delete, "delete", "Delete", has_selection, never, delete_selected},
    {Command::SelectAllEvents, "select_all_events", "Select All", has_events, never, select_all_events},
    {Command::SelectAllSilently, "select_all_silently", "Select All", can_select_all, never,
     select_all_silently},
    {Command::SelectAll, "select_all", "Select All", can_select_all, never, select_all},
    {Command::SelectAllTracks, "select_all_tracks", "Select All on All Tracks", has_song, never,
     select_all_of_all_tracks},
    {Command::SelectLoop, "select_loop", "Select What Is in the Loop", has_song, never, select_loop},
    {Command::SelectNothing, "select_nothing", "Select Nothing", always, never, select_nothing},
    {Command::SelectPrevious, "select_previous", "Select Previous Event", has_selection, never,
     select_previous},
    {Command::SelectNext, "select_next", "Select Next Event", has_selection, never, select_next},
    {Command::Duplicate, "duplicate", "Duplicate", has_selection, never, duplicate_selection},
    {Command::MoveEarlier, "move_earlier", "Move Earlier", has_selection, never, move<-1, 0>},
    {Command::MoveLater, "move_later", "Move Later", has_selection, never, move<1, 0>},
    {Command::Shorten, "shorten", "Shorten", has_selection, never, lengthen<-1>},
    {Command::Lengthen, "lengthen", "Lengthen", has_selection, never, lengthen<1>},
    {Command::TransposeUp, "transpose_up", "Transpose Up", has_selection, never, move<0, 1>},
    {Command::TransposeDown, "transpose_down", "Transpose Down", has_selection, never, move<0, -1>},
    {Command::OctaveUp, "octave_up", "Transpose Up by an Octave", has_selection, never, move<0, 12>},
    {Command::OctaveDown, "octave_down", "Transpose Down by an Octave", has_selection, never, move<0, -12>},
    {Command::InsertEvent, "insert_event", "Insert Event at the Position", can_insert, never,
     insert_at_position},
    {Command::Quantise, "quantise", "Quantise", has_selection, never, quantise},
    {Command::Legato, "legato", "Legato", has_selection, never, legato},
    {Command::HalfAsLong, "half_as_long", "Squeeze to Half the Time", has_selection, never, stretch<1, 2>},
    {Command::TwiceAsLong, "twice_as_long", "Stretch to Twice the Time", has_selection, never, stretch<2, 1>},
    {Command::Reverse, "reverse", "Reverse", has_selection, never, reverse_selection},
    {Command::Humanise, "humanise", "Humanise", has_selection, never, humanise},
    {Command::Split, "split", "Split at the Position", has_selection, never, split_at_position},
    {Command::Join, "join", "Join", has_selection, never, join_selection},
    {Command::Louder, "louder", "Louder", has_selection, never, louder<5>},
    {Command::Softer, "softer", "Softer", has_selection, never, louder<-5>},
    {Command::FadeIn, "fade_in", "Fade In", has_selection, never, fade<0, 1>},
    {Command::FadeOut, "fade_out", "Fade Out", has_selection, never, fade<1, 0>},
    {Command::InvertSelection, "select_invert", "Invert Selection", can_select_events, never,
     invert_selection},
    {Command::ZoomIn, "zoom_in", "Zoom In", always, never, prseq_zoom_in},
    {Command::ZoomOut, "zoom_out", "Zoom Out", always, never, prseq_zoom_out},
    {Command::ZoomToSelection, "zoom_to_selection", "Zoom To Selected Event(s)", has_selection, never,
     prseq_zoom_to_selection},
    {Command::ZoomNearSelection, "zoom_near_selection", "Zoom To What Is Selected", has_selection, never,
     zoom_near_selection},
    {Command::ZoomOutAll, "zoom_out_all", "Zoom Out All The Way", is_zoomed_in, never, prseq_zoom_out_all},
    {Command::ZoomToSong, "zoom_to_song", "Zoom To the Song", always, never, zoom_to_song},
    {Command::PlayOrStop, "play_or_stop", "Play", always, is_playing, play_or_stop},
    {Command::GoToStart, "go_to_start", "Go To Start", always, never, go_to_start},
    {Command::GoToEnd, "go_to_end", "Go To End", always, never, go_to_end},
    {Command::DocumentInspector, "document_inspector", "Document Inspector", always, never,
     open_document_inspector},
    toggle<&AttributeFields::trackdisplay>(Command::TrackDisplay, "trackdisplay", "Track Display"),
    toggle<&AttributeFields::keydisplay_shown>(Command::KeyDisplay, "keydisplay", "Key Display"),
    toggle<&AttributeFields::parameterdisplay>(Command::ParameterDisplay, "parameterdisplay",
                                               "Parameter Display"),
    toggle<&AttributeFields::notelanes>(Command::NoteLanes, "notelanes", "Show Note Lanes"),
    {Command::Milliseconds, "msecs", "msecs", always, shows_times_as<TimeDisplayType::Milliseconds>,
     show_times_as<TimeDisplayType::Milliseconds>},
    {Command::MinutesSeconds, "minutes_seconds", "m:s.ms", always,
     shows_times_as<TimeDisplayType::MinutesSeconds>, show_times_as<TimeDisplayType::MinutesSeconds>},
    {Command::BarsBeats, "bars_beats", "Bars+Beats", always, shows_times_as<TimeDisplayType::BarsBeats>,
     show_times_as<TimeDisplayType::BarsBeats>},
    {Command::NewTrack, "new_track", "New Track", always, never, new_track},
    {Command::DeleteTrack, "delete_track", "Delete Track", has_tracks, never, delete_track},
    {Command::PreviousTrack, "previous_track", "Previous Track", has_tracks, never, activate_track<-1>},
    {Command::NextTrack, "next_track", "Next Track", has_tracks, never, activate_track<1>},
    {Command::MuteTrack, "mute_track", "Mute", has_active_track, is_set<&Track::mute>,
     turn_track<&Track::mute, prseq_trackmute>},
    {Command::SoloTrack, "solo_track", "Solo", has_active_track, is_set<&Track::solo>,
     turn_track<&Track::solo, prseq_tracksolo>},
    {Command::TrackInspector, "track_inspector", "Track Inspector", has_tracks, never, open_track_inspector},
    toggle<&AttributeFields::showlabels>(Command::ShowLabels, "showlabels", "Show Labels", has_active_track),
    toggle<&AttributeFields::showmessages>(Command::ShowMessages, "showmessages", "Show Messages",
                                           has_active_track),
    toggle<&AttributeFields::showbpfs>(Command::ShowBpfs, "showbpfs", "Show Bpfs", has_active_track),
    toggle<&AttributeFields::showbuffers>(Command::ShowBuffers, "showbuffers", "Show Buffers",
                                          has_active_track),
    {Command::EventInspector, "event_inspector", "Event Inspector", has_one_selected, never,
     open_event_inspector},
    {Command::EditBpfs, "edit_bpfs", "Edit", has_active_track, edits_bpfs, edit_bpfs_or_not},
    toggle<&AttributeFields::display_all_bpfs>(Command::DisplayAllBpfs, "display_all_bpfs", "Display All",
                                               shows_bpfs),
    {Command::BpfTimeAbsolute, "bpf_time_absolute", "Bpf Point Time is Absolute", has_active_track,
     bpf_time_is<true>, set_bpf_time<true>},
    {Command::BpfTimeRelative, "bpf_time_relative", "Bpf Point Time is Relative", has_active_track,
     bpf_time_is<false>, set_bpf_time<false>},
    {Command::Cycle, "cycle", "Cycle", always, has_cycle, cycle_or_not},
    {Command::LoopSelection, "loop_selection", "Loop Selection", has_selection, never, loop_selection},
    {Command::RepeatLoop, "loop_repeat", "Repeat the Loop", has_song, never, repeat_loop},
    {Command::InsertLoop, "loop_insert", "Insert Time at the Loop", has_song, never, insert_loop},
    {Command::DeleteLoop, "loop_delete", "Delete the Loop's Time", has_song, never, delete_loop},
    {Command::SwapLoop, "loop_swap", "Swap the Loop with What Follows", has_song, never, swap_loop},
    {Command::FollowLineCursor, "follow_line_cursor", "Follow Line Cursor", always, follows_line_cursor,
     follow_line_cursor_or_not},
    toggle<&AttributeFields::snappitch>(Command::PitchSnap, "snappitch", "Pitch Snap"),
    toggle<&AttributeFields::snaptime>(Command::TimeSnap, "snaptime", "Time Snap"),
    {Command::BarsFollowTempo, "bars_follow_tempo", "Bars Follow the Tempo", always, bars_follow_tempo,
     turn_bars_follow_tempo},
    toggle<&AttributeFields::events_follow_tempo>(Command::EventsFollowTempo, "events_follow_tempo",
                                                  "Events Follow the Tempo", bars_follow_tempo),
    mode_row<MouseMode::Select>(Command::SelectMode, "select_mode"),
    mode_row<MouseMode::Insert>(Command::InsertMode, "insert_mode"),
    mode_row<MouseMode::Slice>(Command::SliceMode, "slice_mode"),
    mode_row<MouseMode::Glue>(Command::GlueMode, "glue_mode"),
    mode_row<MouseMode::Zoom>(Command::ZoomMode, "zoom_mode"),
    mode_row<MouseMode::EditBpf>(Command::EditBpfMode, "edit_bpf_mode"),
    mode_row<MouseMode::SelectBpf>(Command::SelectBpfMode, "select_bpf_mode"),
    mode_row<MouseMode::Buffer>(Command::BufferMode, "buffer_mode"),
};

}  // namespace

std::span<const CommandRow> commands() { return rows; }

const CommandRow& command_row(Command id) { return rows[static_cast<size_t>(id)]; }

const CommandRow* find_command(std::string_view name) {
    auto row = std::ranges::find(rows, name, [](const CommandRow& r) { return std::string_view(r.name); });
    return row == std::end(rows) ? nullptr : row;
}

void run_command(Prseq& object, Command id) {
    const CommandRow& row = command_row(id);
    if (row.toggles)
        object_method_typed(object, gensym(row.toggles), Atoms{long{!row.checked(object)}});
    else
        row.run(object);
}

}  // namespace tq
