#include "interaction/mouse_modes.h"

#include <algorithm>

#include "edits/event_edits.h"
#include "instance/prseq.h"
#include "interaction/hit_test.h"
#include "interaction/pointer.h"
#include "interaction/select_mode.h"
#include "model/bpf_editor.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "view/draw_keydisplay.h"

namespace tq {

namespace {

void press_nothing(Prseq&, const Pointer&) {}

void press_in_slice_mode(Prseq& object, const Pointer& press) {
    const EventRef event = event_under(object, press);
    if (!event) return;
    TQ_Prseq_Tracks_DeselectAllEventsInTrack(object, object.activetrack);
    slice_event(object, event, snapped(press.ms, snap_grid(object)));
}

void press_in_glue_mode(Prseq& object, const Pointer& press) {
    if (const EventRef event = event_under(object, press)) glue_event_to_next(object, event);
}

constexpr MouseModeRow rows[] = {
    {MouseMode::Select, "select", "Select", "pointer8.png", BpfEditor::Closes, press_in_select_mode},
    {MouseMode::Insert, "insert", "Insert", "cursor_pencil32.png", BpfEditor::Closes, press_nothing},
    {MouseMode::Zoom, "zoom", "Zoom", "cursor_zoom.png", BpfEditor::StaysAsItIs, press_nothing},
    {MouseMode::EditBpf, "edit_bpf", "Edit Bpf Points", "cursor_pencilBpf32.png", BpfEditor::Opens,
     press_nothing},
    {MouseMode::SelectBpf, "select_bpf", "Select Bpf Points", "cursor_selectBpf.png", BpfEditor::Opens,
     press_nothing},
    {MouseMode::Slice, "slice", "Slice", "cursor_scissors.png", BpfEditor::Closes, press_in_slice_mode},
    {MouseMode::Glue, "glue", "Glue", "cursor_pastetube.png", BpfEditor::Closes, press_in_glue_mode},
    {MouseMode::Buffer, "buffer", "Buffer Start/End", "cursor_arrows_leftright.png", BpfEditor::Closes,
     press_nothing},
};

void open_bpf_editor(Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (list_selected_events(object) > 0)
        TQ_Prseq_Track_SetSelectedEventForBpfEditingFromSelection(object);
    else if (track && track->events.size() <= 1)
        object.bpfeditingevent = track->events.first();
    object.showbpfs = true;
    object.bpfeditor = true;
}

}  // namespace

std::span<const MouseModeRow> mouse_modes() { return rows; }

const MouseModeRow& mouse_mode_row(MouseMode mode) { return rows[static_cast<size_t>(mode)]; }

void prseq_mousemode(Prseq& object, Symbol name) {
    auto row = std::ranges::find_if(rows, [&](const MouseModeRow& r) { return name.text() == r.name; });
    if (row == std::end(rows)) {
        object_error(object, "mouse mode does not exist");
        return;
    }
    commit_editing_gesture(object);
    const std::optional<long> lit = lit_pitch(object);
    if (row->editor == BpfEditor::Opens) open_bpf_editor(object);
    if (row->editor == BpfEditor::Closes) object.bpfeditor = false;
    object.maindisplay.mousemode = row->mode;
    prseq_show(object, Change::MouseMode);
    if (lit_pitch(object) != lit) prseq_show(object, Change::KeyDisplay);
}

}  // namespace tq
