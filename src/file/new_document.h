// Emptying the document.
#pragma once

namespace tq {

struct Prseq;

/// Empties the document; the view, the attributes and the untitled counter stay. It begins with the meter of
/// a new box.
void TQ_Prseq_NewFile(Prseq& object);

}  // namespace tq
