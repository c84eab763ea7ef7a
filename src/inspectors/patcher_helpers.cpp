#include "inspectors/patcher_helpers.h"

#include <algorithm>
#include <utility>

#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

PatcherBox* TQ_Prseq_Utilities_FindBoxFromVarname(Patcher& patcher, Symbol name) {
    const auto box = std::ranges::find(patcher.boxes, name, &PatcherBox::varname);
    return box == patcher.boxes.end() ? nullptr : &*box;
}

bool TQ_Prseq_Utilities_HideAllBoxesInPatcher(Patcher& patcher, bool hide) {
    bool changed = false;
    for (PatcherBox& box : patcher.boxes) {
        changed |= std::exchange(box.hidden, hide) != hide;
        if (box.patcher) changed |= TQ_Prseq_Utilities_HideAllBoxesInPatcher(*box.patcher, hide);
    }
    return changed;
}

void TQ_Prseq_Utilities_SetNotificationFromObject(Prseq& object, Object& sender, bool on) {
    if (on)
        object_attach_byptr(object, sender);
    else
        object_detach_byptr(object, sender);
}

std::string TQ_Prseq_Utilities_GetTextAtomsFromSender(const Field& sender) {
    const Atoms& words = sender.value();
    std::string text =
        words.size() == 1 && words[0].is_symbol() ? words[0].as_symbol().text() : atom_gettext(words);
    return text == tq_sym_empty.text() ? "" : text;
}

}  // namespace tq
