#include "interaction/popup_menu.h"

#include <optional>
#include <utility>

#include "host/host.h"
#include "instance/prseq.h"
#include "interaction/commands.h"

namespace tq {

void PopupMenu::add(PopupItem item, Action action) {
    items_.push_back(std::move(item));
    actions_.push_back(std::move(action));
}

void PopupMenu::add(const Prseq& object, Command id, SurfaceRef icon) {
    const CommandRow& row = command_row(id);
    add({.text = row.text(object),
         .checked = row.checked(object),
         .disabled = !row.enabled(object),
         .icon = std::move(icon)},
        [id](Prseq& o) { run_command(o, id); });
}

void PopupMenu::separate() { add({.text = {}, .separator = true}); }

PopupMenu::Action PopupMenu::ask(Prseq& object, Point at) const {
    const std::optional<size_t> chosen = object.host().patch.popup(items_, at);
    return chosen && *chosen < actions_.size() ? actions_[*chosen] : [](Prseq&) {};
}

}  // namespace tq
