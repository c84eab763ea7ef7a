#include "interaction/go_to_event.h"

#include <array>

#include "edits/track_edits.h"
#include "instance/prseq.h"
#include "model/select_where.h"
#include "playback/output.h"
#include "view/zoom_commands.h"

namespace tq {

void go_to_event(Prseq& object, Event& event) {
    prseq_activetrack(object, event.track->index);
    select_events(object, std::array{&event}, SelectHow::Only);
    TQ_Prseq_Output_OutputSelectedEvents(object);
    scroll_to(object, event);
}

}  // namespace tq
