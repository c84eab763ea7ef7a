// The road of a change: dirty flag, layers, redraw.
#pragma once

#include "view/invalidate.h"

namespace tq {

struct Prseq;

/// Marks the document as differing from its file or not, shows it, and asks for a redraw.
void prseq_setdirtyflag(Prseq& object, bool dirty);
bool prseq_getdirtyflag(const Prseq& object);
/// Invalidates the layers that show this kind of change and asks for a redraw.
void prseq_show(Prseq& object, Change change);
/// What every edit of the document ends with: both of the above.
void prseq_edited(Prseq& object, Change change);

}  // namespace tq
