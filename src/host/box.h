// A box in a patcher view: its rectangle, its focus, and the layers it is painted from.
#pragma once

#include "host/geometry.h"
#include "host/layers.h"
#include "host/object.h"

namespace tq {

class Box : public Object {
 public:
    using Object::Object;
    /// Width and height in pixels of the view (its position does not matter to what is inside).
    double width = 400, height = 300;
    Size minimum_size{0, 0};  ///< the box cannot be made smaller
    bool focus = false;
    mutable Layers layers;  ///< what was painted before; no part of the box's state
    /// Called when the box has got another size.
    virtual void resized() {}
};

/// Gives the box a size in pixels, held to its minimum, and asks for a paint.
void jbox_set_size(Box& box, Size size);
/// Asks for a paint soon; asking twice is asking once.
void jbox_redraw(Box& box);

}  // namespace tq
