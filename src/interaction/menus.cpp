#include "interaction/menus.h"

#include <initializer_list>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "edits/track_edits.h"
#include "host/host.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "model/bpfs.h"
#include "model/tracks.h"
#include "view/menu_bar.h"

namespace tq {

namespace {

struct TrackItem {
    long index;
};
struct BpfTypeItem {
    long index;
};
using Action = std::variant<std::monostate, Command, TrackItem, BpfTypeItem>;

/// What is shown, and what each line of it does.
struct Menu {
    std::vector<PopupItem> items;
    std::vector<Action> actions;

    void add(PopupItem item, Action action) {
        items.push_back(std::move(item));
        actions.push_back(action);
    }
    void separate() { add({.text = {}, .separator = true}, {}); }
    void add(const Prseq& object, Command id) {
        const CommandRow& row = command_row(id);
        add({.text = row.text(object), .checked = row.checked(object), .disabled = !row.enabled(object)}, id);
    }
};

constexpr auto separator = std::nullopt;
using Line = std::optional<Command>;

void add_tracks(Menu& menu, const Prseq& object) {
    if (!object.tracks.empty()) menu.separate();
    for (const TrackRef& track : object.tracks)
        menu.add({.text = track->name, .checked = track->index == object.activetrack},
                 TrackItem{track->index});
}

void add_bpf_types(Menu& menu, const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    menu.separate();
    if (!track) return menu.add({.text = "Pitch", .disabled = true}, {});
    for (long i = 0; i < std::ssize(track->bpftypes); ++i)
        menu.add({.text = track->bpftypes[static_cast<size_t>(i)]->name.text(),
                  .checked = i == track->activebpfindex},
                 BpfTypeItem{i});
}

struct MenuRow {
    std::initializer_list<Line> lines;
    void (*more)(Menu&, const Prseq&) = nullptr;  ///< lines that follow from the document
};

/// In the order of the titles.
const MenuRow& menu_row(size_t title) {
    using enum Command;
    static const MenuRow rows[menu_titles.size()] = {
        {{New, Open, separator, Save, SaveAs, separator, DocumentInspector}},
        {{Undo, Redo, separator, Cut, Copy, Paste, Delete, separator, SelectAll}},
        {{ZoomIn, ZoomOut, ZoomToSelection, ZoomOutAll, separator, TrackDisplay, KeyDisplay, ParameterDisplay,
          separator, NoteLanes, separator, Milliseconds, MinutesSeconds}},
        {{NewTrack, DeleteTrack, separator, TrackInspector}, add_tracks},
        {{ShowLabels, ShowMessages, ShowBpfs, ShowBuffers, separator, EventInspector}},
        {{EditBpfs, separator, DisplayAllBpfs, separator, BpfTimeAbsolute, BpfTimeRelative}, add_bpf_types},
        {{Cycle, FollowLineCursor, separator, PitchSnap, TimeSnap}}};
    return rows[title];
}

Menu make_menu(const Prseq& object, size_t title) {
    Menu menu;
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

struct TakeAction {
    Prseq& object;
    void operator()(std::monostate) const {}
    void operator()(Command id) const { run_command(object, id); }
    void operator()(TrackItem item) const { prseq_activetrack(object, item.index); }
    void operator()(BpfTypeItem item) const {
        Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
        const BpfType* type = track ? TQ_Prseq_Tracks_GetBpfTypeWithGivenIndex(*track, item.index) : nullptr;
        if (!type) return;
        track->activebpfindex = item.index;
        TQ_Prseq_Tracks_SetActiveBpfToAllEventsOnTrack(*track, *type);
        prseq_show(object, Change::Types);
    }
};

}  // namespace

void TQ_Prseq_Menu_Show(Prseq& object, size_t title) {
    const Rect rect = TQ_Prseq_Menu_CalculateMenuDisplaySize(object.menufontsize).titles[title];
    const Menu menu = make_menu(object, title);
    object.menubar = {static_cast<long>(title), true};
    prseq_show(object, Change::UpperDisplay);
    const std::optional<size_t> chosen =
        object.host().patch.popup(menu.items, {rect.x, rect.y + rect.height});
    object.menubar = {};
    prseq_show(object, Change::UpperDisplay);
    if (chosen && *chosen < menu.actions.size()) std::visit(TakeAction{object}, menu.actions[*chosen]);
}

}  // namespace tq
