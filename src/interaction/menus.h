// The menus of the menu bar.
#pragma once

#include <cstddef>

namespace tq {

struct Prseq;

/// Shows the menu of a title below it, and runs what is chosen. Its items are those of the moment.
void TQ_Prseq_Menu_Show(Prseq& object, size_t title);

}  // namespace tq
