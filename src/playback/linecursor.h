// Moving the line cursor.
#pragma once

namespace tq {

struct Prseq;

/// The cursor is at `ms` from now on; while playing, the view follows it unless it is told not to.
void TQ_Prseq_LineCursor_SetLineCursorPositionInMsAndRedraw(Prseq& object, double ms);

}  // namespace tq
