#include "interaction/scrollbars.h"

#include <memory>

#include "host/host.h"
#include "instance/prseq.h"
#include "interaction/pointer.h"
#include "interaction/view_axis.h"
#include "view/scrollbar_mouse.h"
#include "view/zoom.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

using enum ScrollbarResult;

Point in_part(const Prseq& object, const ViewAxis& axis, Point at) {
    const Rect& part = object.layout[axis.part];
    return {at.x - part.x, at.y - part.y};
}

class ScrollbarGesture final : public Gesture {
 public:
    ScrollbarGesture(const ViewAxis& axis, const Pointer& press, const ZoomScroll& before)
        : axis_(axis), press_(press), before_(before) {}
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        const Point at = in_part(object, axis_, dragged_to(press_, to));
        const ScrollbarResult result = TQScrollbar_Drag(object.*axis_.bar, at.x, at.y);
        if (result == DraggedInScrollbarBox) axis_scrolled(object, axis_);
        if (result == DraggedInZoomBox) axis_zoomed(object, axis_);
    }

    void commit(Prseq& object) override {
        TQScrollbar_Click(object.*axis_.bar, 0, 0, false);
        prseq_show(object, Change::Scrollbars);
    }

    void rollback(Prseq& object) override {
        commit(object);
        TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(object, before_);
    }

 private:
    const ViewAxis& axis_;
    Pointer press_;
    ZoomScroll before_;
};

/// What a press in an arrow, or in the page area beside the knob, does at once, and again and again while the
/// button is held.
struct Repeat {
    ScrollbarResult pressed;
    double (*distance)(const Prseq&, const ViewAxis&);  ///< pixels of the page
    /// There is nothing more to scroll to: the end of the page, or the knob is where the press was.
    bool (*done)(const TQScrollbar&, double press);
};
constexpr double first_delay = 330, repeat_interval = 50;  // ms
constexpr double at_the_end = 1e-9;                        // unity, but for the last bits of sums

template <int direction>
double arrow_distance(const Prseq& object, const ViewAxis& axis) {
    return direction * axis.step(object);
}
template <int direction>
double page_distance(const Prseq& object, const ViewAxis& axis) {
    return direction * (object.*axis.bar).selectionpagesize;
}
constexpr Repeat repeats[] = {
    {ClickedInArrowBox0, arrow_distance<-1>,
     [](const TQScrollbar& bar, double) { return bar.scrollunityvalue <= at_the_end; }},
    {ClickedInArrowBox1, arrow_distance<1>,
     [](const TQScrollbar& bar, double) { return bar.scrollunityvalue >= 1 - at_the_end; }},
    {ClickedInScrollbarBoxOutsideKnobLower, page_distance<-1>,
     [](const TQScrollbar& bar, double press) { return bar.knobposition <= press; }},
    {ClickedInScrollbarBoxOutsideKnobHigher, page_distance<1>,
     [](const TQScrollbar& bar, double press) { return bar.knobposition + bar.knobsize >= press; }},
};

/// Where a press is in the scroll box, along it.
double along(const TQScrollbar& bar, Point at) {
    return bar.orientation == TQScrollbar::Orientation::Horizontal ? at.x - bar.scrollbox.x
                                                                   : at.y - bar.scrollbox.y;
}

void scroll_repeatedly(Prseq& object, const ViewAxis& axis, const Repeat& repeat, double press) {
    const auto scroll = [&object, &axis, &repeat, press](double delay) {
        scroll_axis(object, axis, repeat.distance(object, axis));
        if (!repeat.done(object.*axis.bar, press)) clock_fdelay(*object.gesture->repeat, delay);
    };
    object.gesture->repeat =
        std::make_unique<Clock>(object.host().scheduler, object, [scroll] { scroll(repeat_interval); });
    scroll(first_delay);
}

void press_scrollbar(Prseq& object, const ViewAxis& axis, const Pointer& press) {
    const ZoomScroll before = TQ_Prseq_Zoom_GetZoomScrollObjectNow(object);
    const Point at = in_part(object, axis, press.at);
    const ScrollbarResult result = TQScrollbar_Click(object.*axis.bar, at.x, at.y, true);
    if (result == Nothing) return;
    zoom_clock_stop(object);  // an animated zoom would take the view away again
    object.gesture = std::make_unique<ScrollbarGesture>(axis, press, before);
    if (result == ClickedInZoomBox) axis_zoomed(object, axis);
    for (const Repeat& repeat : repeats)
        if (repeat.pressed == result) scroll_repeatedly(object, axis, repeat, along(object.*axis.bar, at));
}

}  // namespace

void press_horscrollbar(Prseq& object, const Pointer& press) {
    press_scrollbar(object, horizontal_axis, press);
}
void press_vertscrollbar(Prseq& object, const Pointer& press) {
    press_scrollbar(object, vertical_axis, press);
}

}  // namespace tq
