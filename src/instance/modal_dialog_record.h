// The question that is asked inside the box.
#pragma once

#include <vector>

#include "host/geometry.h"
#include "host/symbol.h"

namespace tq {

struct ModalButton {
    Symbol name;
    Rect rect;  ///< in the dialog
};

struct ModalDialog {
    Symbol message{};
    Symbol title{};  ///< the menu item that asks
    Size size;
    Rect text;                         ///< in the dialog
    std::vector<ModalButton> buttons;  ///< from the left
};

}  // namespace tq
