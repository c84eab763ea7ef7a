// The layers that the box is painted in.
#pragma once

#include <span>

#include "host/geometry.h"
#include "host/layers.h"
#include "host/symbol.h"
#include "instance/change.h"

namespace tq {

class Graphics;
struct Prseq;

inline const Symbol tq_sym_background_layer = gensym("background_layer"),
                    tq_sym_upperdisplay_layer = gensym("upperdisplay_layer"),
                    tq_sym_timedisplay_layer = gensym("timedisplay_layer"),
                    tq_sym_trackdisplay_layer = gensym("trackdisplay_layer"),
                    tq_sym_keydisplay_layer = gensym("keydisplay_layer"),
                    tq_sym_maindisplay_layer = gensym("maindisplay_layer"),
                    tq_sym_horscrollbar_layer = gensym("horscrollbar_layer"),
                    tq_sym_vertscrollbar_layer = gensym("vertscrollbar_layer"),
                    tq_sym_linecursor_layer = gensym("linecursor_layer"),
                    tq_sym_marquee_layer = gensym("marquee_layer"),
                    tq_sym_parameterdisplayBG_layer = gensym("parameterdisplayBG_layer"),
                    tq_sym_parameterdisplay_layer = gensym("parameterdisplay_layer"),
                    tq_sym_tiptool_layer = gensym("tiptool_layer"),
                    tq_sym_centeredtext_layer = gensym("centeredtext_layer"),
                    tq_sym_modaldialog_layer = gensym("modaldialog_layer"),
                    tq_sym_border_layer = gensym("border_layer");

struct LayerRow {
    Symbol name;
    bool (*wanted)(const Prseq&);             ///< whether it is painted now
    Rect (*place)(const Prseq&);              ///< where, in the box
    void (*draw)(const Prseq&, Graphics& g);  ///< its contents, from its own top left corner
    Changes shows;  ///< what its contents show; size and pixel ratio go without saying
    /// What of something larger it shows, where a scroll may move what was drawn; none: it is always drawn
    /// anew.
    LayerView (*view)(const Prseq&, double ratio) = nullptr;
};

/// In the order in which they are painted: what comes later covers what comes before.
std::span<const LayerRow> layer_rows();

}  // namespace tq
