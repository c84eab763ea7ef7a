// Where the line cursor is in the view, what it looks like, and scrolling to it.
#pragma once

namespace tq {

struct Prseq;

/// Its place on the page of the present view, in pixels, never below 0.
double TQ_Prseq_LineCursor_CalculateLineCursorPositionInDisplay(const Prseq& object);
/// Scrolls the view to the cursor: by whole pages, or so that it stays in the middle.
void TQ_Prseq_LineCursor_SetHorizontalScrollFromLineCursorPosition(Prseq& object);
/// Draws the line's picture in the present colour.
void TQ_Prseq_LineCursor_MakeLine(Prseq& object);
/// The line takes the present "linecursorcolor".
void TQ_Prseq_LineCursor_SetLineColor(Prseq& object);

}  // namespace tq
