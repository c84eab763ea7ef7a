// Beginning a new document, or opening another, and the question that comes before.
#pragma once

#include "host/geometry.h"

namespace tq {

struct Prseq;

enum class Replacement { New, Opened };

/// Replaces the document by an empty one, or by one that the user chooses. One that differs from its file is
/// asked about first, inside the box.
void replace_document(Prseq& object, Replacement by);
/// A press while the question is open: on a button it answers, beside the buttons nothing happens.
void TQ_Prseq_ModalDialog_HandleClickedButton(Prseq& object, Point press);

}  // namespace tq
