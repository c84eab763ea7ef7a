// What the mouse does in each part of the box.
#pragma once

#include <span>

#include "instance/gesture.h"
#include "instance/view_records.h"

namespace tq {

/// Turns of the wheel, in the host's units.
struct WheelTurn {
    double dx = 0, dy = 0;
};

/// A press begins what is done with the button held: it leaves a Gesture in the instance, which gets the
/// drags and the release. None: the part does not answer.
struct PartRow {
    Part part;
    void (*press)(Prseq&, const Pointer&);
    void (*hover)(Prseq&, const Pointer&);
    void (*wheel)(Prseq&, WheelTurn);
    void (*doubleclick)(Prseq&, const Pointer&);
};

/// None for Part::None.
const PartRow* part_row(Part part);

}  // namespace tq
