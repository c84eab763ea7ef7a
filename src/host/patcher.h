// Patchers: boxes by scripting name, with an object inside each.
#pragma once

#include <vector>

#include "host/object.h"

namespace tq {

struct PatcherBox {
    Symbol varname;
    bool hidden = false;
    Object* object = nullptr;
    Atoms value{};  ///< what the object inside answers when asked for its value
};

/// Its boxes are in the patcher's object order.
struct Patcher {
    std::vector<PatcherBox> boxes;
};

}  // namespace tq
