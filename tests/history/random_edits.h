// Random edits as the mouse, commands and inspectors make them.
#pragma once

#include <random>

#include "instance/prseq.h"

namespace tq {

void random_edit(Prseq& object, std::mt19937& random);

}  // namespace tq
