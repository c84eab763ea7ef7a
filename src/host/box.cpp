#include "host/box.h"

#include <algorithm>

#include "host/host.h"

namespace tq {

void jbox_set_size(Box& box, Size size) {
    box.width = std::max(size.width, box.minimum_size.width);
    box.height = std::max(size.height, box.minimum_size.height);
    box.resized();
    jbox_redraw(box);
}

void jbox_redraw(Box& box) { box.host().patch.redraw(box); }

}  // namespace tq
