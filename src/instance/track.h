// A track: events in start order, the curve and parameter types they carry, colours and routing.
#pragma once

#include <string>
#include <vector>

#include "host/color.h"
#include "host/symbol.h"
#include "instance/bpf.h"
#include "instance/counted.h"
#include "instance/event.h"
#include "instance/event_list.h"
#include "instance/parameter.h"

namespace tq {

struct Track : Counted<Track> {
    EventList events;
    EventRef nextevent;       ///< playback: the next event to be sent, or none
    EventKey nextplace{};     ///< where the next event stood when it was chosen; playback goes on behind it
    EventRef loopstartevent;  ///< the first event at or after the loop's start
    EventRef loopendevent;    ///< the last event before the loop's end
    std::string name;         ///< at most 255 bytes
    bool visible = true;      ///< an invisible track's events can be neither selected nor hit
    bool mute = false;        ///< the events are not sent while playing
    bool solo = false;        ///< kept and saved; playback does not ask it
    double hue = 0;           ///< 0 to 1; the colours come from it
    Rgba color;               ///< events of the active track
    Rgba inactivecolor;       ///< events of other tracks
    Rgba framecolor;          ///< outlines of events of other tracks
    Rgba parametercolor;      ///< the parameter display's working colour
    Rgba selectedcolor;       ///< selected events
    std::vector<BpfTypeRef> bpftypes;
    std::vector<ParameterTypeRef> parametertypes;
    Symbol displayedparameter = gensym("Velocity");
    long activebpfindex = 0;  ///< which of bpftypes is edited and drawn in front
    long index = -1;          ///< in the document's list; −1 while it is not in it
    long deletedindex = -1;   ///< where it was when it was deleted
    Symbol destination;       ///< the receiver that gets the events; empty: outlet 0
    bool discardnoteoutput = false;
    bool discarddefaultpitchbpfoutput = false;
};
using TrackRef = Ref<Track>;

}  // namespace tq
