// What a press begins and a release ends.
#pragma once

#include <memory>

#include "host/clock.h"
#include "host/geometry.h"

namespace tq {

struct Prseq;

/// Where the pointer is.
struct Pointer {
    Point at;       ///< in the box, pixels
    double ms = 0;  ///< in the main display: the time at it, and the pitch; its floor is that of the row
    double pitch = 0;
    unsigned modifiers = 0;  ///< bits of host/modifiers.h
};

/// In which directions the view scrolls while the pointer is dragged outside of what was pressed.
enum class Autoscroll { None, Horizontal, Both };

/// A drag, a marquee, a number field that is turned: made by the press, with all that the steps need of that
/// moment. Every step is computed from the press and the pointer as it is now, in ms and semitones, so that
/// zooming and scrolling meanwhile change nothing of it. One stands in the instance at a time. The release,
/// another press and the loss of the focus commit it, and so does whatever begins an edit, if the gesture is
/// one itself: what comes from the pointer after that is no part of it any more.
class Gesture {
 public:
    Autoscroll autoscroll = Autoscroll::None;
    std::unique_ptr<Clock> repeat;  ///< what goes on while the button is held and the pointer stands still

    virtual ~Gesture() = default;
    /// Whether it changes what undo knows. A gesture that only moves the view or the play position goes on
    /// while something else edits.
    virtual bool edits() const { return true; }
    /// The pointer has been dragged.
    virtual void step(Prseq& object, const Pointer& to) = 0;
    /// The end: one undo item for all steps, or none.
    virtual void commit(Prseq& object) = 0;
    /// The end by the release of the button, for those to whom it matters where that was.
    virtual void release(Prseq& object, const Pointer&) { commit(object); }
    /// The document is as if there had been no gesture.
    virtual void rollback(Prseq& object) = 0;
};

/// Ends the gesture that stands in the instance, if there is one.
void commit_gesture(Prseq& object);
void release_gesture(Prseq& object, const Pointer& at);
/// The same, if it edits.
void commit_editing_gesture(Prseq& object);
void roll_back_gesture(Prseq& object);

}  // namespace tq
