#include "instance/gesture.h"

#include <utility>

#include "instance/prseq.h"

namespace tq {

// Taken out first: what a gesture does at its end begins an edit, which ends gestures.

void commit_gesture(Prseq& object) {
    if (const std::unique_ptr<Gesture> gesture = std::move(object.gesture)) gesture->commit(object);
}

void release_gesture(Prseq& object, const Pointer& at) {
    if (const std::unique_ptr<Gesture> gesture = std::move(object.gesture)) gesture->release(object, at);
}

void commit_editing_gesture(Prseq& object) {
    if (object.gesture && object.gesture->edits()) commit_gesture(object);
}

void roll_back_gesture(Prseq& object) {
    if (const std::unique_ptr<Gesture> gesture = std::move(object.gesture)) gesture->rollback(object);
}

}  // namespace tq
