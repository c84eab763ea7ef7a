// The attributes of the class.
#pragma once

#include "host/class.h"

namespace tq {

struct Prseq;

/// Registers every attribute, in the order in which an inspector lists them.
void add_attributes(Class& c);
/// What follows when an attribute was changed.
void attribute_modified(Prseq& object, Symbol name);

}  // namespace tq
