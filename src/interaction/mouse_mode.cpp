#include "interaction/mouse_mode.h"

#include <algorithm>
#include <iterator>

#include "model/selection.h"
#include "model/tracks.h"
#include "shell/change.h"
#include "shell/prseq.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

enum class BpfEditor { Open, Close, AsItIs };

struct Row {
    const char* name;
    MouseMode mode;
    BpfEditor editor;
};

constexpr Row rows[] = {
    {"select", MouseMode::Select, BpfEditor::Close},       {"insert", MouseMode::Insert, BpfEditor::Close},
    {"zoom", MouseMode::Zoom, BpfEditor::AsItIs},          {"edit_bpf", MouseMode::EditBpf, BpfEditor::Open},
    {"select_bpf", MouseMode::SelectBpf, BpfEditor::Open}, {"slice", MouseMode::Slice, BpfEditor::Close},
    {"glue", MouseMode::Glue, BpfEditor::Close},           {"buffer", MouseMode::Buffer, BpfEditor::Close},
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

void prseq_mousemode(Prseq& object, Symbol name) {
    auto row = std::ranges::find_if(rows, [&](const Row& r) { return name.text() == r.name; });
    if (row == std::end(rows)) {
        object_error(object, "mouse mode does not exist");
        return;
    }
    if (row->editor == BpfEditor::Open) open_bpf_editor(object);
    if (row->editor == BpfEditor::Close) object.bpfeditor = false;
    TQ_Prseq_Maindisplay_SetMouseMode(object.maindisplay, row->mode);
    prseq_show(object, Change::MouseMode);
}

}  // namespace tq
