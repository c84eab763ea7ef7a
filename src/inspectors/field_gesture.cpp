#include "inspectors/field_gesture.h"

#include <utility>

#include "inspectors/begin_gesture.h"
#include "model/events.h"
#include "model/timeline.h"

namespace tq {

namespace {

class FieldGesture final : public Gesture {
 public:
    FieldGesture(const Prseq& object, const TurnedNumber& number, EventRef event)
        : number_(number),
          event_(std::move(event)),
          before_(before_steps(object)),
          at_press_(event_state(*event_)) {}

    bool is_about(const TurnedNumber& number) const { return &number == &number_; }

    void turn(Prseq& object, double value) {
        Edit edit(object, Edit::Step{});
        number_.write(object, *event_, value);
        TQ_Prseq_Events_LookAgain(*event_);
        if (event_->track) cover_event(object, *event_);
        turned_ = true;
    }

    /// What is dragged in the box meanwhile is not this.
    void step(Prseq&, const Pointer&) override {}

    void commit(Prseq& object) override {
        if (!turned_) return;
        Edit edit(object, Edit::EndOfSteps{before_});
        number_.record(edit, event_, at_press_);
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        restore_event_state(object, *event_, at_press_);
        edit.taken_back(before_);
    }

 private:
    const TurnedNumber& number_;
    EventRef event_;
    BeforeSteps before_;
    EventState at_press_;
    bool turned_ = false;
};

}  // namespace

void turn_number(Prseq& object, const TurnedNumber& number, const EventRef& event, const Field& field,
                 const std::string& what) {
    if (what == "mousedown") begin_gesture<FieldGesture>(object, number, event);
    auto* const gesture = gesture_about<FieldGesture>(object, number);
    if (what == "mouseup" && gesture) commit_gesture(object);
    if (what != "value") return;
    const double value = field.value().front().as_double();
    if (gesture) return gesture->turn(object, value);
    begin_gesture<FieldGesture>(object, number, event).turn(object, value);
    commit_gesture(object);
}

}  // namespace tq
