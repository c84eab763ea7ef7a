// Messages that edit and select events as musicians do. Their arguments are told by name where they are
// wrong, and nothing happens then.
#pragma once

#include "host/class.h"

namespace tq {

/// Registers them.
void add_edit_messages(Class& c);

}  // namespace tq
