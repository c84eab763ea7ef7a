#include "view/invalidate.h"

#include <algorithm>
#include <vector>

#include "shell/prseq.h"

namespace tq {

namespace {

struct Row {
    Change change;
    std::vector<Symbol> layers;
};

/// A layer that is not shown may be invalidated: it is then fresh when it is shown again.
const std::vector<Row>& rows() {
    static const std::vector<Row> table{
        {Change::HorizontalView,
         {tq_sym_horscrollbar_layer, tq_sym_timedisplay_layer, tq_sym_maindisplay_layer,
          tq_sym_parameterdisplayBG_layer}},
        {Change::VerticalView,
         {tq_sym_vertscrollbar_layer, tq_sym_keydisplay_layer, tq_sym_maindisplay_layer}},
        {Change::ZoomAndScroll,
         {tq_sym_horscrollbar_layer, tq_sym_vertscrollbar_layer, tq_sym_keydisplay_layer,
          tq_sym_timedisplay_layer, tq_sym_maindisplay_layer, tq_sym_parameterdisplayBG_layer}},
        {Change::TimelineLength,
         {tq_sym_horscrollbar_layer, tq_sym_timedisplay_layer, tq_sym_maindisplay_layer,
          tq_sym_parameterdisplayBG_layer}},
        {Change::TimeDisplayType, {tq_sym_timedisplay_layer, tq_sym_maindisplay_layer}},
        {Change::Initialisation,
         {tq_sym_background_layer, tq_sym_upperdisplay_layer, tq_sym_timedisplay_layer,
          tq_sym_trackdisplay_layer, tq_sym_keydisplay_layer, tq_sym_maindisplay_layer,
          tq_sym_horscrollbar_layer, tq_sym_vertscrollbar_layer, tq_sym_linecursor_layer,
          tq_sym_parameterdisplayBG_layer}},
        {Change::Everything,
         {tq_sym_upperdisplay_layer, tq_sym_timedisplay_layer, tq_sym_keydisplay_layer,
          tq_sym_maindisplay_layer, tq_sym_horscrollbar_layer, tq_sym_vertscrollbar_layer,
          tq_sym_linecursor_layer, tq_sym_parameterdisplayBG_layer, tq_sym_border_layer}},
        {Change::Events, {tq_sym_maindisplay_layer, tq_sym_parameterdisplayBG_layer}},
        {Change::Tracks,
         {tq_sym_trackdisplay_layer, tq_sym_maindisplay_layer, tq_sym_parameterdisplayBG_layer}},
        {Change::TrackName, {tq_sym_trackdisplay_layer, tq_sym_maindisplay_layer, tq_sym_upperdisplay_layer}},
        {Change::Meter, {tq_sym_maindisplay_layer, tq_sym_timedisplay_layer}},
        {Change::Parameter, {tq_sym_parameterdisplayBG_layer}},
        {Change::MouseMode, {tq_sym_upperdisplay_layer, tq_sym_maindisplay_layer}},
        {Change::Cycle, {tq_sym_timedisplay_layer}},
        {Change::Marquee, {tq_sym_marquee_layer}},
        {Change::LineCursor, {tq_sym_linecursor_layer}},
        {Change::ModalDialog, {tq_sym_modaldialog_layer}},
        {Change::Background, {tq_sym_background_layer, tq_sym_upperdisplay_layer}},
        {Change::UpperDisplay, {tq_sym_upperdisplay_layer}},
        {Change::TimeDisplay, {tq_sym_timedisplay_layer}},
        {Change::TrackDisplay, {tq_sym_trackdisplay_layer}},
        {Change::KeyDisplay, {tq_sym_keydisplay_layer}},
        {Change::MainDisplay, {tq_sym_maindisplay_layer}},
    };
    return table;
}

}  // namespace

void invalidate_layer(Prseq& object, Symbol name) { jbox_invalidate_layer(object, name); }

void invalidate_all(Prseq& object) { prseq_invalidate(object, Change::Everything); }

void prseq_invalidate(Prseq& object, Change change) {
    auto row = std::ranges::find(rows(), change, &Row::change);
    if (row == rows().end()) return;
    for (Symbol layer : row->layers) invalidate_layer(object, layer);
}

}  // namespace tq
