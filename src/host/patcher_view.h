// The window that boxes stand in.
#pragma once

#include "host/geometry.h"
#include "host/object.h"

namespace tq {

class PatcherView : public Object {
 public:
    explicit PatcherView(Host& host);
    const Rect& rect() const { return rect_; }

 private:
    friend void patcherview_set_rect(PatcherView& view, const Rect& rect);
    Rect rect_;  ///< on the screen, pixels
};

/// The window has moved or has another size; whoever watches it is told "attr_modified" of its "rect".
void patcherview_set_rect(PatcherView& view, const Rect& rect);

}  // namespace tq
