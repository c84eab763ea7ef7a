#include "playback/linecursor.h"

#include "instance/prseq.h"
#include "view/linecursor.h"

namespace tq {

void TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(Prseq& object, double ms) {
    object.linecursor.position = ms;
    prseq_show(object, Change::LineCursor);
    if (object.playing && object.linecursor.follow)
        TQ_Prseq_LineCursor_SetHorizontalScrollFromLineCursorPosition(object);
}

}  // namespace tq
