// Numbers in messages.
#pragma once

#include <cmath>

#include "host/atom.h"

namespace tq {

/// Whole numbers are exact as ints; floats are rounded to single precision.
inline Atom exact_atom(double value) {
    return value == std::floor(value) ? Atom(static_cast<long>(value)) : Atom(value);
}

}  // namespace tq
