// Random edits as the mouse, keys, menus and inspectors make them: each is one item of the history, or
// nothing.
#pragma once

#include <random>

#include "shell/prseq.h"

namespace tq {

void random_edit(Prseq& object, std::mt19937& random);

}  // namespace tq
