#include "host/box.h"

#include "host/host.h"

namespace tq {

void jbox_redraw(Box& box) { box.host().patch.redraw(box); }

}  // namespace tq
