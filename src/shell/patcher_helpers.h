// Walking the boxes of a patcher, and files that are shipped with the program.
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
/// The full path of a file in the resource folder (the environment's SORVO_RESOURCES, or "resources" beside
/// the program's build); the empty symbol when there is no such folder.
Symbol TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(Symbol filename);

}  // namespace tq
