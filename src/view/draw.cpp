#include "view/draw.h"

#include "playback/linecursor.h"
#include "shell/prseq.h"
#include "view/draw_maindisplay.h"
#include "view/draw_overlays.h"
#include "view/synchronise.h"
#include "view/tiptool.h"

namespace tq {

namespace {

bool always(const Prseq&) { return true; }
bool has_border(const Prseq& object) { return object.border; }
bool has_marquee(const Prseq& object) { return object.maindisplay.marqueeactive; }

bool has_tiptool(const Prseq& object) { return object.tiptool.visible; }

bool has_maindisplay(const Prseq& object) {
    return object.maindisplay.rect.width >= 0 && object.maindisplay.rect.height >= 0;
}

bool asks_for_an_event_to_edit(const Prseq& object) {
    return edits_curves(object.maindisplay.mousemode) && !(object.bpfeditor && object.bpfeditingevent);
}

void follow_linecursor(Prseq& object) {
    TQ_Prseq_LineCursor_CalculateLineCursorPositionInDisplay(object);
    if (object.playing && object.linecursor.follow)
        TQ_Prseq_LineCursor_SetHorizontalScrollFromLineCursorPosition(object);
}

void follow_and_draw_linecursor(Prseq& object, Graphics& view) {
    follow_linecursor(object);
    draw_linecursor(object, view);
}

void draw_hint(Prseq& object, Graphics& view) {
    draw_centered_text(object, view, " Alt-click an event to edit its bpfs ");
}

struct Step {
    bool (*wanted)(const Prseq&);
    void (*paint)(Prseq&, Graphics& view);
};

/// What is painted later covers what is painted before.
constexpr Step steps[] = {
    {always, draw_background},
    {has_maindisplay, draw_maindisplay},
    {has_maindisplay, TQ_Prseq_Tracks_DrawBpfLabel},
    {has_maindisplay, follow_and_draw_linecursor},
    {has_marquee, draw_marquee},
    {asks_for_an_event_to_edit, draw_hint},
    {has_tiptool, TQ_Prseq_Tiptool_Draw},
    {has_border, draw_border},
};

}  // namespace

void prseq_paint(Prseq& object, Graphics& view) { draw_display(object, view); }

void draw_display(Prseq& object, Graphics& view) {
    synchronise_view(object);
    for (const Step& step : steps)
        if (step.wanted(object)) step.paint(object, view);
}

void update_view_as_painted(Prseq& object) {
    synchronise_view(object);
    if (has_maindisplay(object)) follow_linecursor(object);
}

}  // namespace tq
