#include "interaction/mouse.h"

#include "history/edit.h"
#include "instance/prseq.h"
#include "interaction/autoscroll.h"
#include "interaction/cursors.h"
#include "interaction/parts.h"
#include "interaction/pointer.h"
#include "interaction/replace_document.h"
#include "playback/output.h"
#include "view/draw_keydisplay.h"
#include "view/layout.h"
#include "view/tiptool.h"

namespace tq {

namespace {

/// None while a question is open, which keeps the mouse for itself.
const PartRow* part_under(const Prseq& object, double x, double y) {
    if (object.modaldialog) return nullptr;
    return part_row(whichpartisthemouse(object, x, y));
}

void hide_tiptool(Prseq& object) { TQ_Prseq_Tiptool_Set(object, "", 0, 0, {}); }

/// The pointer is somewhere else; the key that is lit goes with it.
void hover_at(Prseq& object, const Hover& hover) {
    const std::optional<long> lit = lit_pitch(object);
    object.hover = hover;
    if (lit_pitch(object) != lit) prseq_show(object, Change::KeyDisplay);
}

/// While a question is open, nothing of what is under it takes notice of the pointer.
void hover_over(Prseq& object, double x, double y) {
    if (!object.modaldialog) hover_at(object, {whichpartisthemouse(object, x, y), {x, y}});
}

void set_focus(Prseq& object, bool focus) {
    object.focus = focus;
    prseq_show(object, Change::UpperDisplay);
}

}  // namespace

void prseq_mousedown(Prseq& object, double x, double y, unsigned modifiers) {
    commit_gesture(object);
    end_what_is_under_way(object);  // what a press begins comes after it in the history
    if (object.modaldialog) return TQ_Prseq_ModalDialog_HandleClickedButton(object, {x, y});
    hover_over(object, x, y);
    const PartRow* part = part_under(object, x, y);
    if (part && part->press) part->press(object, pointer_at(object, x, y, modifiers));
    jbox_redraw(object);
}

void prseq_mousedrag(Prseq& object, double x, double y, unsigned modifiers) {
    // What is pressed in the main display stays over its pitches, wherever it is dragged.
    if (object.hover.part == Part::MainDisplay) hover_at(object, {Part::MainDisplay, {x, y}});
    if (object.gesture && !object.modaldialog) {
        autoscroll(object, {x, y}, modifiers);
        object.gesture->step(object, pointer_at(object, x, y, modifiers));
    }
    jbox_redraw(object);
}

void prseq_mouseup(Prseq& object, double x, double y, unsigned modifiers) {
    release_gesture(object, pointer_at(object, x, y, modifiers));
    hide_tiptool(object);
    if (object.outputonrelease) TQ_Prseq_Output_OutputSelectedEvents(object);
    object.outputonrelease = false;
    jbox_redraw(object);
}

void prseq_mousedoubleclick(Prseq& object, double x, double y, unsigned modifiers) {
    const PartRow* part = part_under(object, x, y);
    if (part && part->doubleclick) part->doubleclick(object, pointer_at(object, x, y, modifiers));
}

void prseq_mousemove(Prseq& object, double x, double y, unsigned modifiers) {
    if (object.tiptool.visible) hide_tiptool(object);
    hover_over(object, x, y);
    const PartRow* part = part_under(object, x, y);
    if (part)
        part->hover(object, pointer_at(object, x, y, modifiers));
    else
        TQ_Prseq_SetMouseCursorFromIcon(object, CursorArrow);
}

void prseq_mouseleave(Prseq& object, double x, double y, unsigned) {
    hover_at(object, {Part::None, {x, y}});
    TQ_Prseq_SetMouseCursorFromIcon(object, CursorArrow);
}

void prseq_mousewheel(Prseq& object, double x, double y, unsigned, double dx, double dy) {
    hover_over(object, x, y);
    const PartRow* part = part_under(object, x, y);
    if (part && part->wheel) part->wheel(object, {dx, dy});
    if (part && !part->wheel) TQ_Prseq_SetMouseCursorFromIcon(object, CursorArrow);
}

void prseq_focusgained(Prseq& object) { set_focus(object, true); }

void prseq_focuslost(Prseq& object) {
    commit_gesture(object);
    set_focus(object, false);
}

}  // namespace tq
