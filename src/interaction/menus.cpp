#include "interaction/menus.h"

#include <initializer_list>
#include <optional>

#include "edits/track_edits.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "interaction/popup_menu.h"
#include "model/bpfs.h"
#include "model/tracks.h"
#include "view/menu_bar.h"

namespace tq {

namespace {

constexpr auto separator = std::nullopt;
using Line = std::optional<Command>;

void add_tracks(PopupMenu& menu, const Prseq& object) {
    if (!object.tracks.empty()) menu.separate();
    for (const TrackRef& track : object.tracks)
        menu.add({.text = track->name, .checked = track->index == object.activetrack},
                 [index = track->index](Prseq& o) { prseq_activetrack(o, index); });
}

void add_bpf_types(PopupMenu& menu, const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    menu.separate();
    if (!track) return menu.add({.text = "Pitch", .disabled = true});
    for (long i = 0; i < std::ssize(track->bpftypes); ++i)
        menu.add({.text = track->bpftypes[static_cast<size_t>(i)]->name.text(),
                  .checked = i == track->activebpfindex},
                 [i](Prseq& o) { activate_bpf_type(o, i); });
}

struct MenuRow {
    std::initializer_list<Line> lines;
    void (*more)(PopupMenu&, const Prseq&) = nullptr;  ///< lines that follow from the document
};

/// In the order of the titles.
const MenuRow& menu_row(size_t title) {
    using enum Command;
    static const MenuRow rows[menu_titles.size()] = {
        {{New, Open, separator, Save, SaveAs, separator, DocumentInspector}},
        {{Undo, Redo, separator, Cut, Copy, Paste, DeleteEvents, separator, SelectAllEvents}},
        {{ZoomIn, ZoomOut, ZoomToSelection, ZoomOutAll, separator, TrackDisplay, KeyDisplay, ParameterDisplay,
          separator, NoteLanes, separator, Milliseconds, MinutesSeconds}},
        {{NewTrack, DeleteTrack, separator, TrackInspector}, add_tracks},
        {{ShowLabels, ShowMessages, ShowBpfs, ShowBuffers, separator, EventInspector}},
        {{EditBpfs, separator, DisplayAllBpfs, separator, BpfTimeAbsolute, BpfTimeRelative}, add_bpf_types},
        {{Cycle, FollowLineCursor, separator, PitchSnap, TimeSnap}}};
    return rows[title];
}

PopupMenu make_menu(const Prseq& object, size_t title) {
    PopupMenu menu;
    const MenuRow& row = menu_row(title);
    for (const Line& line : row.lines) {
        if (line)
            menu.add(object, *line);
        else
            menu.separate();
    }
    if (row.more) row.more(menu, object);
    return menu;
}

}  // namespace

void TQ_Prseq_Menu_Show(Prseq& object, size_t title) {
    const Rect rect = TQ_Prseq_Menu_CalculateMenuDisplaySize(object.menufontsize).titles[title];
    const PopupMenu menu = make_menu(object, title);
    object.menubar = {static_cast<long>(title), true};
    prseq_show(object, Change::UpperDisplay);
    const PopupMenu::Action chosen = menu.ask(object, {rect.x, rect.y + rect.height});
    object.menubar = {};
    prseq_show(object, Change::UpperDisplay);
    chosen(object);
}

}  // namespace tq
