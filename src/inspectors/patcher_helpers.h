// Walking the boxes of a patcher.
#pragma once

#include <string>

#include "host/patcher.h"

namespace tq {

struct Prseq;

/// The first box of that scripting name, or none.
PatcherBox* TQ_Prseq_Utilities_FindBoxFromVarname(Patcher& patcher, Symbol name);
/// Also those of the patchers in it. Whether any was otherwise.
bool TQ_Prseq_Utilities_HideAllBoxesInPatcher(Patcher& patcher, bool hide);
/// Whether the instance hears what the object tells.
void TQ_Prseq_Utilities_SetNotificationFromObject(Prseq& object, Object& sender, bool on);
/// The words of a text field; "<empty>" is the empty text.
std::string TQ_Prseq_Utilities_GetTextAtomsFromSender(const Field& sender);

}  // namespace tq
