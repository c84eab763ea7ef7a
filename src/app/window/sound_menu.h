// A menu of the built-in sounds.
#pragma once

#include <functional>
#include <string>

class QMenu;
class QString;

namespace tq {

/// What a receiver sounds like: "Violin", "Drums: Jazz"; another name stands for itself.
QString sound_name(const std::string& receiver);

/// The families of General MIDI with their sounds, the drum kits, and no sound of its own. `chosen` is
/// marked; a receiver that is none of these stands there as it is.
void fill_sound_menu(QMenu& menu, const std::string& chosen,
                     const std::function<void(const std::string&)>& choose);

}  // namespace tq
