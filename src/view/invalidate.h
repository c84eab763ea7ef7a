// Which change is shown by which layers.
#pragma once

#include "host/symbol.h"

namespace tq {

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

/// What can change about what is seen. Size and pixel ratio are not here: a layer notices those itself.
enum class Change {
    // the view
    HorizontalView,  ///< zoom or scroll
    VerticalView,    ///< zoom or scroll
    ZoomAndScroll,   ///< both
    TimelineLength,
    TimeDisplayType,
    Initialisation,
    Everything,
    // the document
    Events,  ///< events, their values and curves, and which are selected
    Tracks,  ///< the list, the active track, colours, visibility
    TrackName,
    Meter,
    Parameter,  ///< which parameter is displayed
    // what happens
    MouseMode,
    Cycle,
    Marquee,
    LineCursor,
    ModalDialog,
    Background,  ///< the colour behind all
    // the look or the contents of one display
    UpperDisplay,
    TimeDisplay,
    TrackDisplay,
    KeyDisplay,
    MainDisplay
};

void invalidate_layer(Prseq& object, Symbol name);
void invalidate_all(Prseq& object);
/// Invalidates the layers that show a change. Asking for the redraw is left to the caller.
void prseq_invalidate(Prseq& object, Change change);

}  // namespace tq
