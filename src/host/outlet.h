// What leaves an object through its outlets, numbered from the left.
#pragma once

#include "host/atom.h"

namespace tq {

class Object;

/// Sends a plain list.
void outlet_list(Object& object, int outlet, AtomSpan atoms);
/// Sends a message: a selector and its arguments.
void outlet_anything(Object& object, int outlet, Symbol selector, AtomSpan atoms);
/// Sends a message out of the outlet that answers queries.
void dumpout_anything(Object& object, Symbol selector, AtomSpan atoms);

}  // namespace tq
