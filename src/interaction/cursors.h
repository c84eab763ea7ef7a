// The pointer's images: they show the mouse mode, and what a press would take hold of.
#pragma once

namespace tq {

struct Prseq;

enum CursorIndex : long {
    CursorArrow = -1,  ///< the host's, as are the last two
    CursorPencil = 0,
    CursorResizeLeft = 1,
    CursorResizeRight = 2,
    CursorZoom = 3,
    CursorZoomIn = 4,
    CursorZoomOut = 5,
    CursorPencilBpf = 6,
    CursorSelectBpf = 7,
    CursorScissors = 8,
    CursorPasteTube = 9,
    CursorArrowsUpDown = 10,
    CursorBufferStart = 11,
    CursorBufferEnd = 12,
    CursorHand = 13,
    CursorCopying = 14
};

/// Reads the images; posts "file %s not found" for each that is missing.
void TQ_Prseq_MakeIconsForCursor(Prseq& object);
/// Shows a cursor over the box. One whose image is missing leaves the pointer as it was.
void TQ_Prseq_SetMouseCursorFromIcon(Prseq& object, long index);

}  // namespace tq
