#include "view/layers.h"

#include "host/graphics.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "view/draw_keydisplay.h"
#include "view/draw_maindisplay.h"
#include "view/draw_modaldialog.h"
#include "view/draw_overlays.h"
#include "view/draw_parameterdisplay.h"
#include "view/draw_scrollbar.h"
#include "view/draw_timedisplay.h"
#include "view/draw_trackdisplay.h"
#include "view/draw_upperdisplay.h"
#include "view/tiptool.h"

namespace tq {

namespace {

Rect whole_box(const Prseq& object) { return {0, 0, object.width, object.height}; }
template <Part part>
Rect place_of(const Prseq& object) {
    return object.layout[part];
}

bool always(const Prseq&) { return true; }
bool has_border(const Prseq& object) { return object.border; }
bool has_parameterdisplay(const Prseq& object) { return object.parameterdisplay; }
bool has_modaldialog(const Prseq& object) { return object.modaldialog.has_value(); }
bool has_marquee(const Prseq& object) { return object.maindisplay.marqueeactive; }
bool has_tiptool(const Prseq& object) { return object.tiptool.visible; }
bool has_maindisplay(const Prseq& object) {
    return object.maindisplay.rect.width >= 0 && object.maindisplay.rect.height >= 0;
}
bool has_keydisplay(const Prseq& object) { return object.keydisplay_shown; }
bool has_trackdisplay(const Prseq& object) { return object.trackdisplay; }
void draw_horscrollbar(const Prseq& object, Graphics& g) { TQScrollbar_Draw(object.horscrollbar, g); }
void draw_vertscrollbar(const Prseq& object, Graphics& g) { TQScrollbar_Draw(object.vertscrollbar, g); }
bool asks_for_an_event_to_edit(const Prseq& object) {
    return edits_curves(object.maindisplay.mousemode) && !bpf_edited_event(object);
}

}  // namespace

std::span<const LayerRow> layer_rows() {
    using enum Change;
    static const LayerRow rows[] = {
        {tq_sym_background_layer, always, whole_box, draw_background, {Initialisation, Background}},
        {tq_sym_horscrollbar_layer,
         always,
         place_of<Part::HorScrollbar>,
         draw_horscrollbar,
         {HorizontalView, TimelineLength, Initialisation, Everything, Scrollbars}},
        {tq_sym_vertscrollbar_layer,
         always,
         place_of<Part::VertScrollbar>,
         draw_vertscrollbar,
         {VerticalView, Initialisation, Everything, Scrollbars}},
        {tq_sym_keydisplay_layer,
         has_keydisplay,
         place_of<Part::KeyDisplay>,
         TQ_Prseq_Keydisplay_Draw,
         {VerticalView, Initialisation, Everything, KeyDisplay}},
        {tq_sym_trackdisplay_layer,
         has_trackdisplay,
         place_of<Part::TrackDisplay>,
         TQ_Prseq_Trackdisplay_Draw,
         {Initialisation, Everything, Tracks, TrackName, TrackDisplay}},
        {tq_sym_maindisplay_layer,
         has_maindisplay,
         place_of<Part::MainDisplay>,
         draw_maindisplay,
         {HorizontalView, VerticalView, TimelineLength, TimeDisplayType, Initialisation, Everything, Events,
          Tracks, TrackName, Types, Meter, MouseMode, MainDisplay},
         maindisplay_view},
        {tq_sym_timedisplay_layer,
         always,
         place_of<Part::TimeDisplay>,
         draw_timedisplay,
         {HorizontalView, TimelineLength, TimeDisplayType, Initialisation, Everything, Cycle, Meter,
          TimeDisplay}},
        {tq_sym_parameterdisplayBG_layer,
         has_parameterdisplay,
         place_of<Part::ParameterDisplay>,
         draw_parameterdisplay_background,
         {HorizontalView, Initialisation, Everything, ParameterDisplay}},
        {tq_sym_parameterdisplay_layer,
         has_parameterdisplay,
         place_of<Part::ParameterDisplay>,
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
        {tq_sym_centeredtext_layer,
         asks_for_an_event_to_edit,
         place_of<Part::MainDisplay>,
         draw_bpf_hint,
         {}},
        {tq_sym_modaldialog_layer, has_modaldialog, whole_box, draw_modaldialog, {Everything, ModalDialog}},
        {tq_sym_border_layer, has_border, whole_box, draw_border, {Everything}},
    };
    return rows;
}

}  // namespace tq
