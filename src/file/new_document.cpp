#include "file/new_document.h"

#include "history/undoredo.h"
#include "host/transport.h"
#include "instance/prseq.h"
#include "model/bars.h"
#include "model/timeline.h"
#include "model/tracks.h"
#include "playback/time.h"

namespace tq {

void TQ_Prseq_NewFile(Prseq& object) {
    if (object.playing) TQ_Prseq_Time_StartStopPlayer(object, 0);  // while the receivers can still be told
    clock_unset(object.eventcaptureclock);
    object.capture = {};
    TQ_Prseq_Undoredo_DeleteUndoLine(object);
    TQ_Prseq_Tracks_DeleteAllTracksAndFree(object);
    object.activetrack = -1;
    object.selection.clear();
    object.gesture.reset();
    object.bpfeditingevent = nullptr;
    object.nextevent = nullptr;
    object.nextevent_track = nullptr;
    ++object.info.emptied;
    object.info.filename.clear();
    object.info.fileversion = 100;
    object.info.title = "No Title";
    object.info.author = "Anonymous";
    object.info.memo.clear();
    begin_meter(object);
    if (object.bars_follow_tempo) begin_song(object, usual_tempo);
    advance_revision(object);
    prseq_setdirtyflag(object, false);
}

void begin_song(Prseq& object, double bpm) {
    constexpr double bars = 4;
    itm_settempo(*object.transport, bpm);
    follow_tempo(object);
    object.cycle = {0, bars * object.meter.wholenote, false};
    extend_timeline(object, object.cycle.end);
}

}  // namespace tq
