#include "interaction/random_hand.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "interaction/commands.h"
#include "interaction/key_commands.h"
#include "interaction/mouse_modes.h"
#include "model/bpf_editor.h"
#include "model/tracks.h"
#include "view/draw_bpf_editor.h"
#include "view/trackdisplay.h"

namespace tq::test {

void RandomHand::wait(double ms) {
    Scheduler& scheduler = session_.host().scheduler;
    scheduler.run_until(scheduler.now() + ms);
}

std::optional<size_t> RandomHand::popup(std::span<const PopupItem> items, Point) {
    wait(number(50));
    const size_t chosen = below(items.size());
    const bool dismissed = chance(4) || items[chosen].separator || items[chosen].disabled;
    return dismissed ? std::nullopt : std::optional(chosen);
}

Event* RandomHand::any_event() {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(session_.box());
    return track && !track->events.empty() ? track->events.at(below(track->events.size())) : nullptr;
}

Point RandomHand::any_place() {
    const Rect rect = session_.box().maindisplay.rect;
    return {rect.x + rect.width * number(1000) / 1000, rect.y + rect.height * number(1000) / 1000};
}

Point RandomHand::place_on(const Event& event) {
    const MainDisplay& md = session_.box().maindisplay;
    const Rect rect = TQ_Prseq_Events_Rect(session_.box(), event);
    const double places[] = {rect.width / 2, rect.width * number(100) / 100, 1, rect.width - 1};
    return {md.rect.x + rect.x + places[below(4)],
            md.rect.y + rect.y + rect.height * number(100) / 100 - md.verticalscroll};
}

/// Of the event's curve.
Point RandomHand::near_a_point(const Event& event) {
    const BpfPoints& points = event.activebpf->points;
    const Rect handle = bpf_point_handle(EventView(session_.box(), 1), event, points[below(points.size())]);
    const Rect& rect = session_.box().maindisplay.rect;
    return {rect.x + handle.x + number(9) - 1, rect.y + handle.y + number(9) - 1};
}

/// A press, some way, also far beyond all edges, and mostly a release; sometimes something else meanwhile.
void RandomHand::gesture(Point from, bool right) {
    using enum MouseCall::Kind;
    static constexpr unsigned keys[] = {
        0, 0, 0, modifier_shift, modifier_option, modifier_control, modifier_shift | modifier_option};
    unsigned held = keys[below(7)];
    if (chance(3)) call(MouseCall{Move, from.x, from.y, false, held});
    call(MouseCall{Down, from.x, from.y, right, held});
    Point at = from;
    for (size_t steps = below(5); steps > 0; --steps) {
        const double far = chance(8) ? 3000 : 120;
        at = {at.x + far * (number(1000) / 500 - 1), at.y + far / 3 * (number(1000) / 500 - 1)};
        if (chance(6)) held = keys[below(7)];
        call(MouseCall{Drag, at.x, at.y, right, held});
        if (chance(6)) wait(number(400));
        if (chance(12)) edit_by_command();
    }
    if (chance(12)) return command("select_nothing");
    if (!chance(12)) call(MouseCall{Up, at.x, at.y, right, held});
}

void RandomHand::gesture_in_a_mode() {
    static constexpr MouseMode modes[] = {MouseMode::Select,    MouseMode::Select,  MouseMode::Select,
                                          MouseMode::Insert,    MouseMode::Slice,   MouseMode::Glue,
                                          MouseMode::Zoom,      MouseMode::EditBpf, MouseMode::EditBpf,
                                          MouseMode::SelectBpf, MouseMode::Buffer,  MouseMode::Buffer};
    if (chance(2)) session_.send(std::string("mouse_mode ") + mouse_mode_row(modes[below(12)]).name);
    if (chance(4)) session_.send(below(2) ? "snaptime 1" : "snaptime 0");
    if (chance(4)) session_.send(below(2) ? "snappitch 1" : "snappitch 0");
    const Event* event = bpf_edited_event(session_.box());
    const bool on_a_point = event && event->activebpf && chance(2);
    if (!event || chance(3)) event = any_event();
    Point from = any_place();
    if (event && event->activebpf && on_a_point)
        from = near_a_point(*event);
    else if (event && !chance(5))
        from = place_on(*event);
    if (edits_curves(session_.box().maindisplay.mousemode) && chance(8))
        for (long key : {long{'a'}, long{key_backspace}}) call(KeyCall{key});
    const Rect& rect = session_.box().maindisplay.rect;
    gesture({std::clamp(from.x, rect.x, rect.x + rect.width - 1),
             std::clamp(from.y, rect.y, rect.y + rect.height - 1)});
}

void RandomHand::gesture_in_the_lane() {
    session_.send("parameterdisplay 1");
    session_.send(chance(2) ? "lane_by_time 1" : "lane_by_time 0");
    const Rect lane = session_.box().layout[Part::ParameterDisplay];
    const Event* event = any_event();
    const double x = event ? TQ_Prseq_Events_Rect(session_.box(), *event).x + 1 : number(300);
    gesture({lane.x + std::clamp(x, 0., lane.width - 1), lane.y + number(80)});
}

void RandomHand::press_a_track() {
    using enum MouseCall::Kind;
    const Rect list = session_.box().layout[Part::TrackDisplay];
    const double y = list.y + track_header_height + track_row_height * (0.5 + number(6));
    call(MouseCall{Down, list.x + 20, y});
    call(MouseCall{Up, list.x + 20, y});
    if (chance(6)) call(MouseCall{Double, list.x + 20, y});
}

void RandomHand::press_somewhere() {
    const Prseq& box = session_.box();
    const Point at{number(static_cast<size_t>(box.width)),
                   chance(3) ? 12 : number(static_cast<size_t>(box.height))};
    gesture(at, chance(4));
    if (chance(5)) call(MouseCall{MouseCall::Kind::Double, at.x, at.y});
}

void RandomHand::press_a_key() {
    static constexpr long codes[] = {'x', 'c', 'v', 'a', 'z', 'i', key_backspace, key_left, key_right};
    call(KeyCall{codes[below(9)], chance(4) ? unsigned{modifier_shift} : 0});
}

void RandomHand::edit_by_command() {
    using enum Command;
    static constexpr Command some[] = {Cut,
                                       Copy,
                                       Copy,
                                       Paste,
                                       Paste,
                                       Delete,
                                       DeleteEvents,
                                       SelectAll,
                                       SelectAll,
                                       SelectNext,
                                       SelectPrevious,
                                       Duplicate,
                                       MoveEarlier,
                                       MoveLater,
                                       Shorten,
                                       Lengthen,
                                       TransposeUp,
                                       TransposeDown,
                                       OctaveUp,
                                       OctaveDown,
                                       InsertEvent,
                                       NextTrack,
                                       PreviousTrack,
                                       NewTrack,
                                       SelectNothing,
                                       Quantise,
                                       Legato,
                                       HalfAsLong,
                                       Reverse,
                                       Humanise,
                                       Split,
                                       Join,
                                       Louder,
                                       Softer,
                                       InvertSelection,
                                       FadeOut,
                                       FadeIn,
                                       PasteAtPosition,
                                       SelectAllTracks,
                                       SelectAllTracks,
                                       SelectAllTracks,
                                       SelectLoop};
    command(command_row(some[below(std::size(some))]).name);
}

void RandomHand::any_command() { command(commands()[below(commands().size())].name); }

void RandomHand::turn_the_wheel() {
    const Point at = any_place();
    call(WheelCall{at.x, at.y, chance(3) ? number(9) / 50 - 0.08 : 0, number(9) / 50 - 0.08});
}

Atom RandomHand::any_cell(const TableColumn& column) {
    return column.text ? Atom(gensym("t" + std::to_string(below(6)))) : Atom(number(3000) - 500);
}

/// Something that a user can do to the control, and something that none can, now and then.
void RandomHand::change_field(const std::string& name, const Field& field) {
    const auto tell = [&](const char* change, Atoms atoms = {}) {
        call(FieldCall{name, change, std::move(atoms)});
    };
    static constexpr const char* words[] = {"", "sound", "a", "two words", "<empty>", "1"};
    const FieldForm form = field.form();
    const long row = static_cast<long>(below(field.rows().size() + 1));
    switch (form.kind) {
        case FieldKind::Text:
            return tell("value", {gensym(words[below(6)])});
        case FieldKind::Number:
        case FieldKind::Color: {
            const bool dragged = form.kind == FieldKind::Number && chance(2);
            if (dragged) tell("mousedown");
            for (size_t i = 1 + (dragged ? below(4) : 0); i > 0; --i)
                tell("value", {form.kind == FieldKind::Color ? number(100) / 100 : number(5000) - 300});
            if (dragged && !chance(5)) tell("mouseup");
            return;
        }
        case FieldKind::Table: {
            if (form.columns.empty()) return;
            const long column = static_cast<long>(below(form.columns.size()));
            if (chance(4)) {
                Atoms cells;
                for (const TableColumn& of : form.columns) cells.push_back(any_cell(of));
                return tell("rowadded", chance(2) ? cells : Atoms{});
            }
            if (chance(3)) return tell("rowdeleted", {row});
            if (chance(9)) return tell("cleared");
            const bool dragged = chance(2);
            if (dragged) tell("cell_mousedown", {row, column});
            tell("cellchanged", {row, column, any_cell(form.columns[static_cast<size_t>(column)])});
            if (dragged || chance(2)) tell("cell_mouseup", {row, column});
            return;
        }
        default:
            return tell("value", {static_cast<long>(below(4))});
    }
}

void RandomHand::edit_a_field(bool undoable_only) {
    static const std::string openers[] = {"event_inspector_open", "track_inspector_open",
                                          "document_inspector_open"};
    static const std::set<std::string> uncovered = {"eventEd_freq_base", "eventEd_bpftypes",
                                                    "trackdestination", "trackdiscardnoteoutput",
                                                    "trackdiscarddefaultpitchbpfoutput"};
    if (chance(2)) command("select_next");
    if (chance(4)) call(FieldCall{"eventEd_buffer", "value", {gensym("sound")}});
    session_.send(openers[below(undoable_only ? 2 : 3)]);
    const Inspectors& inspectors = session_.box().inspectors;
    const Inspector& inspector = inspectors.all[undoable_only ? 1 + below(2) : below(3)];
    if (inspector.fields.empty()) return;
    std::vector<std::pair<std::string, const Field*>> fields;  // in an order of their own
    for (const auto& [name, field] : inspector.fields)
        if (!undoable_only || !uncovered.contains(name.text())) fields.emplace_back(name.text(), field);
    std::ranges::sort(fields);
    const auto [name, field] = fields[below(fields.size())];
    change_field(name, *field);
}

void RandomHand::close_an_inspector() {
    static const std::string names[] = {"document", "track", "event"};
    const std::string name = names[below(3)];
    if (chance(2)) return session_.send(name + "_inspector_close");
    call(CloseCall{name, chance(2) ? std::optional(Point{number(900), number(900)}) : std::nullopt});
}

void RandomHand::edit() {
    switch (below(13)) {
        case 0:
            return press_a_track();
        case 1:
            return gesture_in_the_lane();
        case 2:
            return edit_by_command();
        case 3:
            return command(command_row(chance(2) ? Command::SelectAll : Command::SelectNext).name);
        case 4:
            return press_a_key();
        case 5:
        case 6:
            return edit_a_field(true);
        default:
            return gesture_in_a_mode();
    }
}

void RandomHand::act() {
    switch (below(9)) {
        case 0:
            return press_somewhere();
        case 4:
            return chance(3) ? close_an_inspector() : edit_a_field(false);
        case 1:
            return press_a_key();
        case 2:
            return any_command();
        case 3:
            return turn_the_wheel();
        default:
            return edit();
    }
}

}  // namespace tq::test
