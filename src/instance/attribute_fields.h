// The fields behind the attributes of the class; their defaults are in the attribute table.
#pragma once

#include "host/color.h"
#include "host/symbol.h"

namespace tq {

struct AttributeFields {
    Rgba upperdisplaycolor, trackdisplaycolor, menutitletextcolor, timedisplaycolor, timedisplaycyclecolor;
    Rgba linecursorcolor;
    Rgba keydisplaywhitekeycolor, keydisplaywhitekeybordercolor, keydisplayblackkeycolor,
        keydisplaylabelcolor;
    Rgba keydisplayhighlightcolor;
    Rgba maindisplaywhitekeycolor, maindisplayblackkeycolor;
    Rgba maindisplaysubdivisionlinecolor, maindisplaymaindivisionlinecolor;
    double menufontsize = 0;
    long event_capture_span = 0;  ///< ms
    bool snaptime = false, snappitch = false;
    long snap_division = 0;            ///< parts of a beat; 0: the ruler's own steps
    bool bars_follow_tempo = false;    ///< in new documents; see Meter
    bool keep_middle = false;          ///< of events too narrow for two edges and a middle
    bool lane_by_time = false;         ///< the lane is drawn at the pointer's times, over whole chords
    bool shift_draws_loop = false;     ///< in the ruler
    bool events_follow_tempo = false;  ///< where bars do, events keep their place in them
    bool menudisplay = false, focusdisplay = false, dirtydisplay = false;
    bool trackdisplay = false, keydisplay_shown = false, parameterdisplay = false;
    bool showlabels = false, showmessages = false, showbpfs = false, showbuffers = false,
         display_all_bpfs = false;
    bool border = false, notelanes = false, keyhighlight = false;
    bool zoom_animation = false;
    double linecursor_update = 0;  ///< ms
    double base_frequency = 0;     ///< Hz, of pitch 69
    long new_track_color = 0;      ///< a NewTrackColor
    Symbol transportname;          ///< of the transport that is followed; empty: the default one
};

/// What "new_track_color" counts.
enum NewTrackColor : long { Default = 0, Random = 1, Rainbow = 2 };

}  // namespace tq
