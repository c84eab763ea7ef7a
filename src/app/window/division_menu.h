// What time snaps to, as items of a menu.
#pragma once

#include <functional>
#include <string>

class QMenu;
class QString;

namespace tq {

/// Parts of a beat, of which the one that is checked is in use; a choice is a message to the box.
void fill_division_menu(QMenu& menu, long division, const std::function<void(const std::string&)>& send);
/// In a few characters: "1/4" for four parts.
QString division_text(long division);

}  // namespace tq
