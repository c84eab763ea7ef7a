#include "shell/patcher_helpers.h"

#include <algorithm>

#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

PatcherBox* TQ_Prseq_Utilities_FindBoxFromVarname(Patcher& patcher, Symbol name) {
    auto box = std::find_if(patcher.boxes.begin(), patcher.boxes.end(),
                            [&](const PatcherBox& b) { return b.varname == name; });
    return box == patcher.boxes.end() ? nullptr : &*box;
}

Object* TQ_Prseq_Utilities_FindObjectFromVarname(Patcher& patcher, Symbol name) {
    const PatcherBox* box = TQ_Prseq_Utilities_FindBoxFromVarname(patcher, name);
    return box ? box->object() : nullptr;
}

void TQ_Prseq_Utilities_HideAllBoxesInPatcher(Patcher& patcher, bool hide) {
    for (PatcherBox& box : patcher.boxes) box.hidden = hide;
}

void TQ_Prseq_Utilities_SetNotificationFromObject(Prseq& object, Object& sender, bool on) {
    if (on)
        object_attach_byptr(object, sender);
    else
        object_detach_byptr(object, sender);
}

std::optional<std::string> TQ_Prseq_Utilities_GetTextAtomsFromSender(const PatcherBox& sender) {
    if (!sender.field || sender.field->value().empty()) return {};
    std::string text = atom_gettext(sender.field->value());
    return text == tq_sym_empty.text() ? "" : text;
}

}  // namespace tq
