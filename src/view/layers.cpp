#include "view/layers.h"

#include "host/graphics.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "view/draw_maindisplay.h"
#include "view/draw_modaldialog.h"
#include "view/draw_overlays.h"
#include "view/draw_parameterdisplay.h"
#include "view/draw_upperdisplay.h"
#include "view/tiptool.h"

namespace tq {

namespace {

Rect whole_box(const Prseq& object) { return {0, 0, object.width, object.height}; }
Rect maindisplay(const Prseq& object) { return object.maindisplay.rect; }
Rect parameterdisplay(const Prseq& object) { return object.layout[Part::ParameterDisplay]; }

bool always(const Prseq&) { return true; }
bool has_border(const Prseq& object) { return object.border; }
bool has_parameterdisplay(const Prseq& object) { return object.parameterdisplay; }
bool has_modaldialog(const Prseq& object) { return object.modaldialog.has_value(); }
bool has_marquee(const Prseq& object) { return object.maindisplay.marqueeactive; }
bool has_tiptool(const Prseq& object) { return object.tiptool.visible; }
bool has_maindisplay(const Prseq& object) {
    return object.maindisplay.rect.width >= 0 && object.maindisplay.rect.height >= 0;
}
bool asks_for_an_event_to_edit(const Prseq& object) {
    return edits_curves(object.maindisplay.mousemode) && !bpf_edited_event(object);
}

}  // namespace

std::span<const LayerRow> layer_rows() {
    using enum Change;
    static const LayerRow rows[] = {
        {tq_sym_background_layer, always, whole_box, draw_background, {Initialisation, Background}},
        {tq_sym_maindisplay_layer,
         has_maindisplay,
         maindisplay,
         draw_maindisplay,
         {HorizontalView, VerticalView, TimelineLength, TimeDisplayType, Initialisation, Everything, Events,
          Tracks, TrackName, Types, Meter, MouseMode, MainDisplay}},
        {tq_sym_parameterdisplayBG_layer,
         has_parameterdisplay,
         parameterdisplay,
         draw_parameterdisplay_background,
         {}},
        {tq_sym_parameterdisplay_layer,
         has_parameterdisplay,
         parameterdisplay,
         draw_parameterdisplay,
         {HorizontalView, TimelineLength, Initialisation, Everything, Events, Tracks, Types,
          ParameterDisplay}},
        {tq_sym_linecursor_layer,
         linecursor_in_view,
         linecursor_place,
         draw_linecursor,
         {Initialisation, Everything, LineCursor}},
        {tq_sym_marquee_layer, has_marquee, marquee_place, draw_marquee, {Marquee}},
        {tq_sym_upperdisplay_layer,
         always,
         upperdisplay_place,
         draw_upperdisplay,
         {Initialisation, Everything, UpperDisplay, MouseMode, Background}},
        {tq_sym_tiptool_layer, has_tiptool, tiptool_place, TQ_Prseq_Tiptool_Draw, {Tiptool}},
        {tq_sym_centeredtext_layer, asks_for_an_event_to_edit, maindisplay, draw_bpf_hint, {}},
        {tq_sym_modaldialog_layer, has_modaldialog, whole_box, draw_modaldialog, {Everything, ModalDialog}},
        {tq_sym_border_layer, has_border, whole_box, draw_border, {Everything}},
    };
    return rows;
}

}  // namespace tq
