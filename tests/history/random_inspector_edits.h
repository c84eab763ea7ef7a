// Random edits that neither hands nor messages can make so far: those of inspectors.
#pragma once

#include <random>

#include "instance/prseq.h"

namespace tq {

void random_inspector_edit(Prseq& object, std::mt19937& random);

}  // namespace tq
