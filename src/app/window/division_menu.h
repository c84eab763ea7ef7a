// What time snaps to, as items of a menu.
#pragma once

#include <functional>
#include <string>

class QMenu;
class QString;

namespace tq {

struct Divided {
    long division = 0;  ///< parts of a beat that time snaps to; 0: the ruler's steps
    long beat = 4;      ///< its note value
    friend bool operator==(const Divided&, const Divided&) = default;
};

/// Note values, of which the one that is checked is in use; a choice is a message to the box.
void fill_division_menu(QMenu& menu, const Divided& now, const std::function<void(const std::string&)>& send);
/// As a note value, in a few characters: "1/16" for four parts of a quarter note, "1/8 T" for three.
QString division_text(long division, long beat);

}  // namespace tq
