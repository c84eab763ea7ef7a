#include "interaction/mouse_modes.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "edits/event_edits.h"
#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/bpf_edit_mode.h"
#include "interaction/bpf_select_mode.h"
#include "interaction/buffer_mode.h"
#include "interaction/cursors.h"
#include "interaction/hit_test.h"
#include "interaction/insert_gesture.h"
#include "interaction/pointer.h"
#include "interaction/select_mode.h"
#include "interaction/zoom_gesture.h"
#include "model/bpf_editor.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "view/draw_keydisplay.h"

namespace tq {

namespace {

/// Where beats are divided, an event that is there already is edited: another one would lie on it, unseen.
void press_in_insert_mode(Prseq& object, const Pointer& press) {
    if (divides_beats(object) && event_under(object, press)) return press_in_select_mode(object, press);
    object.gesture = insert_gesture(object, press);
}

void press_in_zoom_mode(Prseq& object, const Pointer& press) { object.gesture = zoom_gesture(press); }

/// Where events are inspected, what was made takes the place of what was there.
void inspect(Prseq& object, Event& made) {
    if (!object.inspectors[InspectorKind::Event].open()) return;
    deselect_all_events(object);
    TQ_Prseq_Tracks_SelectEvent2(object, made);
}

void press_in_slice_mode(Prseq& object, const Pointer& press) {
    const EventRef event = event_under(object, press);
    if (!event) return;
    deselect_all_events(object);
    const auto slices = slice_event(object, event, Snap(object).time(press.ms));
    if (slices) inspect(object, *slices->left);
}

void press_in_glue_mode(Prseq& object, const Pointer& press) {
    const EventRef event = event_under(object, press);
    if (!event) return;
    if (const EventRef glued = glue_event_to_next(object, event)) inspect(object, *glued);
}

/// The whole ms under the pointer, on the grid.
double hovered_position(const Prseq& object, const Pointer& at) {
    return Snap(object).time(std::floor(at.ms));
}

template <CursorIndex cursor>
void show_cursor(Prseq& object, const Pointer&) {
    TQ_Prseq_SetMouseCursorFromIcon(object, cursor);
}

void hover_in_insert_mode(Prseq& object, const Pointer& at) {
    TQ_Prseq_SetMouseCursorFromIcon(object, CursorPencil);
    const double pitch = object.snappitch ? std::floor(at.pitch) : at.pitch;
    show_tiptool(object, at,
                 fmt::sprintf("Position: %.2f ms\nPitch: %.2f", hovered_position(object, at), pitch));
}

void hover_in_zoom_mode(Prseq& object, const Pointer& at) {
    TQ_Prseq_SetMouseCursorFromIcon(object, at.modifiers & modifier_option ? CursorZoomOut : CursorZoomIn);
}

void hover_in_slice_mode(Prseq& object, const Pointer& at) {
    TQ_Prseq_SetMouseCursorFromIcon(object, CursorScissors);
    if (event_under(object, at))
        show_tiptool(object, at, fmt::sprintf("Slice: %f ms", hovered_position(object, at)));
}

constexpr MouseModeRow rows[] = {
    {MouseMode::Select, "select", "Select", "pointer8.png", BpfEditor::Closes, press_in_select_mode,
     hover_in_select_mode},
    {MouseMode::Insert, "insert", "Insert", "cursor_pencil32.png", BpfEditor::Closes, press_in_insert_mode,
     hover_in_insert_mode},
    {MouseMode::Zoom, "zoom", "Zoom", "cursor_zoom.png", BpfEditor::StaysAsItIs, press_in_zoom_mode,
     hover_in_zoom_mode},
    {MouseMode::EditBpf, "edit_bpf", "Edit Bpf Points", "cursor_pencilBpf32.png", BpfEditor::Opens,
     press_in_edit_bpf_mode, hover_in_edit_bpf_mode},
    {MouseMode::SelectBpf, "select_bpf", "Select Bpf Points", "cursor_selectBpf.png", BpfEditor::Opens,
     press_in_select_bpf_mode, show_cursor<CursorSelectBpf>},
    {MouseMode::Slice, "slice", "Slice", "cursor_scissors.png", BpfEditor::Closes, press_in_slice_mode,
     hover_in_slice_mode},
    {MouseMode::Glue, "glue", "Glue", "cursor_pastetube.png", BpfEditor::Closes, press_in_glue_mode,
     show_cursor<CursorPasteTube>},
    {MouseMode::Buffer, "buffer", "Buffer Start/End", "cursor_arrows_leftright.png", BpfEditor::Closes,
     press_in_buffer_mode, hover_in_buffer_mode},
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
    std::string_view wanted = name.text();
    if (wanted == "buffer_display") wanted = "buffer";
    auto row =
        std::ranges::find(rows, wanted, [](const MouseModeRow& r) { return std::string_view(r.name); });
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
