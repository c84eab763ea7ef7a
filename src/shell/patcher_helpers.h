// Walking the boxes of a patcher.
#pragma once

#include <optional>
#include <string>

#include "host/patcher.h"

namespace tq {

struct Prseq;

/// The first box of that scripting name, and the object inside it; none when there is none.
PatcherBox* TQ_Prseq_Utilities_FindBoxFromVarname(Patcher& patcher, Symbol name);
Object* TQ_Prseq_Utilities_FindObjectFromVarname(Patcher& patcher, Symbol name);
void TQ_Prseq_Utilities_HideAllBoxesInPatcher(Patcher& patcher, bool hide);
/// Whether the instance hears what the object tells.
void TQ_Prseq_Utilities_SetNotificationFromObject(Prseq& object, Object& sender, bool on);
/// The text of a field's value, "<empty>" being the empty text; none when it has no value.
std::optional<std::string> TQ_Prseq_Utilities_GetTextAtomsFromSender(const PatcherBox& sender);

}  // namespace tq
