// A menu of the built-in sounds.
#pragma once

#include <functional>
#include <string>

class QMenu;

namespace tq {

/// The families of General MIDI with their sounds, the drum kits, and no sound of its own. `chosen` is
/// marked; a receiver that is none of these stands there as it is.
void fill_sound_menu(QMenu& menu, const std::string& chosen,
                     const std::function<void(const std::string&)>& choose);

}  // namespace tq
