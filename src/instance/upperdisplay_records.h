// What the upper display holds: the menu bar and the icons of the mouse modes.
#pragma once

#include <memory>
#include <vector>

#include "instance/view_records.h"

namespace tq {

class Surface;

struct MenuBar {
    long opentitle = -1;  ///< the pressed title's index; −1: none
    bool open = false;    ///< its menu is shown
};

/// A picture that stands for a mouse mode.
struct Icona {
    std::shared_ptr<Surface> image;
    MouseMode mode;
};

struct IconMenu {
    std::vector<Icona> icons;                   ///< from the left
    std::shared_ptr<Surface> normal, selected;  ///< behind the icons; none when their files are missing
};

}  // namespace tq
