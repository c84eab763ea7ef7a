// Pop-up menus.
#pragma once

#include <string>

#include "host/image.h"

namespace tq {

/// A line of a pop-up menu. A separator has no text and cannot be chosen.
struct PopupItem {
    std::string text;
    bool checked = false, disabled = false, separator = false;
    SurfaceRef icon{};  ///< or none
};

}  // namespace tq
