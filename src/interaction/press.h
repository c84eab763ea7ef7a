// What a press and a drag in the main display keep from one call to the next.
#pragma once

#include <vector>

#include "host/geometry.h"
#include "model/event.h"
#include "model/snapshot.h"

namespace tq {

/// A selected event's place in the rectangle around the selection, in pixels.
struct DraggedEvent {
    EventRef event;
    double offsetx = 0, offsety = 0;
};

/// "Relative" is to the main display; "page" is the whole timeline by all pitch rows.
struct MainPress {
    Point press;      ///< relative
    Point pagepress;  ///< the same on the page
    Point drag;       ///< where the pointer is now, relative
    EventRef clickedevent;
    Point clickoffset;                  ///< from the clicked event's origin to the press
    Rect selectionrect;                 ///< around the selected events, now
    Rect selectionwhenclicked;          ///< the same at the press
    std::vector<DraggedEvent> dragged;  ///< the selected events, at the press
    bool eventsmoved = false;
    std::vector<UndoEventSnapshot> undoevents;  ///< what the selected events were at the press
};

}  // namespace tq
