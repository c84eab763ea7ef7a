#include "interaction/key_commands.h"

#include <algorithm>
#include <iterator>

#include "history/clipboard.h"
#include "history/undoredo.h"
#include "host/modifiers.h"
#include "interaction/edits.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "playback/output.h"
#include "shell/change.h"
#include "shell/prseq.h"

namespace tq {

namespace {

void delete_selected(Prseq& object) {
    if (!edits_curves(object.maindisplay.mousemode)) prseq_deleteselectedevents(object);
}

void select_all(Prseq& object) {
    const MouseMode mode = object.maindisplay.mousemode;
    if (mode != MouseMode::Select && mode != MouseMode::Insert) return;
    TQ_Prseq_Tracks_SelectAllEvents(object, object.activetrack);
    TQ_Prseq_Output_OutputSelectedEvents(object);
}

void select_only(Prseq& object, Event* event) {
    if (!event) return;
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    TQ_Prseq_Tracks_SelectEvent2(object, *event);
    TQ_Prseq_Output_OutputSelectedEvents(object);
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

struct KeyCommand {
    long code;
    unsigned modifiers;  ///< exactly these
    void (*run)(Prseq&);
};

constexpr KeyCommand commands[] = {
    {'x', 0, TQ_Prseq_Clipboard_CutSelection},
    {'c', 0, TQ_Prseq_Clipboard_CopySelection},
    {'v', 0, TQ_Prseq_Clipboard_PasteSelection},
    {key_backspace, 0, delete_selected},
    {'z', 0, prseq_undo},
    {'z', modifier_shift, prseq_redo},
    {'a', 0, select_all},
    {key_left, 0, select_previous},
    {key_right, 0, select_next},
};

}  // namespace

void prseq_key(Prseq& object, long code, unsigned modifiers) {
    auto command = std::ranges::find_if(
        commands, [&](const KeyCommand& c) { return c.code == code && c.modifiers == modifiers; });
    if (command == std::end(commands)) return jbox_redraw(object);
    command->run(object);
    prseq_show(object, Change::Events);
}

}  // namespace tq
