#include "shell/patcher_helpers.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"

namespace tq {

namespace {

constexpr size_t longest_path = 2048;

std::filesystem::path resource_folder() {
    if (const char* named = std::getenv("SORVO_RESOURCES"); named && *named) return named;
    std::error_code fault;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", fault);
    return program.parent_path() / ".." / ".." / "resources";
}

}  // namespace

PatcherBox* TQ_Prseq_Utilities_FindBoxFromVarname(Patcher& patcher, Symbol name) {
    auto box = std::find_if(patcher.boxes.begin(), patcher.boxes.end(),
                            [&](const PatcherBox& b) { return b.varname == name; });
    return box == patcher.boxes.end() ? nullptr : &*box;
}

Object* TQ_Prseq_Utilities_FindObjectFromVarname(Patcher& patcher, Symbol name) {
    const PatcherBox* box = TQ_Prseq_Utilities_FindBoxFromVarname(patcher, name);
    return box ? box->object : nullptr;
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
    if (sender.value.empty()) return {};
    std::string text = atom_gettext(sender.value);
    return text == tq_sym_empty.text() ? "" : text;
}

Symbol TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(Symbol filename) {
    std::error_code fault;
    std::filesystem::path folder = std::filesystem::canonical(resource_folder(), fault);
    if (fault) return {};
    return gensym(cut_text((folder / filename.text()).string(), longest_path));
}

}  // namespace tq
