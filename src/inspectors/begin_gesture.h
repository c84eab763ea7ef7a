// Gestures that fields begin, step by step told by their kinds of change.
#pragma once

#include <memory>
#include <utility>

#include "history/edit.h"
#include "instance/prseq.h"

namespace tq {

/// Begins a gesture instead of what is under way.
template <typename Made, typename... Values>
Made& begin_gesture(Prseq& object, Values&&... values) {
    commit_gesture(object);
    end_what_is_under_way(object);
    auto gesture = std::make_unique<Made>(object, std::forward<Values>(values)...);
    Made& begun = *gesture;
    object.gesture = std::move(gesture);
    return begun;
}

/// The gesture that is under way, if it is of this kind and about this; or none.
template <typename Made, typename About>
Made* gesture_about(const Prseq& object, const About& about) {
    auto* gesture = dynamic_cast<Made*>(object.gesture.get());
    return gesture && gesture->is_about(about) ? gesture : nullptr;
}

}  // namespace tq
