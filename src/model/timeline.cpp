#include "model/timeline.h"

#include <algorithm>
#include <cmath>

#include "host/round.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/tracks.h"

namespace tq {

void extend_timeline(Prseq& object, double ms) {
    if (!std::isfinite(ms) || ms <= object.timelinelength) return;
    object.timelinelength = 1000 * jgraphics_round((ms + 2000) / 1000);
    if (object.meter.followstempo) TQ_Prseq_Meter_CalculateMeasures(object.meter, object.timelinelength);
}

void cover_event(Prseq& object, const Event& event) {
    extend_timeline(object, std::max(event.end(), TQ_Prseq_Tracks_FindLastEventsEnd(event.track)));
    object.timelinelengthasked = true;
}

}  // namespace tq
