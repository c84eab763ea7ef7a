#include "interaction/buffer_mode.h"

#include <fmt/printf.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "history/edit.h"
#include "history/event_state.h"
#include "history/recorders.h"
#include "instance/prseq.h"
#include "interaction/cursors.h"
#include "interaction/hit_test.h"
#include "interaction/pointer.h"
#include "model/events.h"
#include "model/selection.h"
#include "view/buffer_shape.h"

namespace tq {

namespace {

enum class Handle { Start, End };

constexpr double grip = 2;  // pixels

/// A range's end is grabbed from 2 pixels before the line that shows it, up to 2 behind the end of the event.
Handle handle_at(const Prseq& object, const Event& event, const Pointer& at) {
    const EventView view(object, 1);
    const auto shape = build_buffer_shape(view, event, view.rect_of(event));
    const double x = event_space(object, at).x;
    return shape && x >= shape->end_x() - grip ? Handle::End : Handle::Start;
}

class BufferRangeGesture final : public Gesture {
 public:
    BufferRangeGesture(const Prseq& object, EventRef event, Handle handle, double press_ms)
        : event_(std::move(event)),
          handle_(handle),
          press_ms_(press_ms),
          at_press_(event_state(*event_)),
          range_(event_->link()),
          before_(before_steps(object)) {}

    /// To the right, the sound begins earlier and ends later.
    void step(Prseq& object, const Pointer& to) override {
        if (!event_->buffer()) return;  // it has gone meanwhile
        Edit edit(object, Edit::Step{});
        const double later = to.ms - press_ms_;
        BufferRange& range = event_->make_link();
        if (handle_ == Handle::Start) {
            range.start = std::max(0., std::min(range_.start - later, range_.end));
            show_tiptool(object, to, fmt::sprintf("Buffer Start: %.2f ms", range.start));
        } else {
            const double latest = std::min(range.length, range_.start + event_->duration);
            range.end = std::max(range_.start, std::min(range_.end + later, latest));
            show_tiptool(object, to, fmt::sprintf("Buffer End: %.2f ms", range.end));
        }
        TQ_Prseq_Events_LookAgain(*event_);
        changed_ = true;
    }

    void commit(Prseq& object) override {
        if (!changed_) return;
        Edit edit(object, Edit::EndOfSteps{before_});
        if (handle_ == Handle::Start)
            TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferStart(edit, event_, std::move(at_press_));
        else
            TQ_Prseq_Undoredo_AddUndoRedoItem_ChangeEventsBufferEnd(edit, event_, std::move(at_press_));
    }

    void rollback(Prseq& object) override {
        Edit edit(object, Edit::Step{});
        restore_event_state(object, *event_, at_press_);
        edit.taken_back(before_);
    }

 private:
    EventRef event_;
    Handle handle_;
    double press_ms_;
    EventState at_press_;
    BufferLink range_;  ///< at the press
    BeforeSteps before_;
    bool changed_ = false;
};

}  // namespace

void press_in_buffer_mode(Prseq& object, const Pointer& press) {
    const EventRef event = event_or_end_under(object, press, grip);
    if (!event) return;
    deselect_all_events(object);
    TQ_Prseq_Tracks_SelectEvent2(object, *event);
    list_selected_events(object);
    if (event->buffer())
        object.gesture =
            std::make_unique<BufferRangeGesture>(object, event, handle_at(object, *event, press), press.ms);
}

void hover_in_buffer_mode(Prseq& object, const Pointer& at) {
    const EventRef event = event_or_end_under(object, at, grip);
    const bool end = event && event->buffer() && handle_at(object, *event, at) == Handle::End;
    TQ_Prseq_SetMouseCursorFromIcon(object, end ? CursorBufferEnd : CursorBufferStart);
}

}  // namespace tq
