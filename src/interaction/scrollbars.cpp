#include "interaction/scrollbars.h"

#include <memory>

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

/// How far a press scrolls, in pixels of the page.
double distance(const Prseq& object, const ViewAxis& axis, ScrollbarResult result) {
    const double page = (object.*axis.bar).selectionpagesize, step = axis.step(object);
    switch (result) {
        case ClickedInArrowBox0:
            return -step;
        case ClickedInArrowBox1:
            return step;
        case ClickedInScrollbarBoxOutsideKnobLower:
            return -page;
        case ClickedInScrollbarBoxOutsideKnobHigher:
            return page;
        default:
            return 0;
    }
}

void press_scrollbar(Prseq& object, const ViewAxis& axis, const Pointer& press) {
    const ZoomScroll before = TQ_Prseq_Zoom_GetZoomScrollObjectNow(object);
    const Point at = in_part(object, axis, press.at);
    const ScrollbarResult result = TQScrollbar_Click(object.*axis.bar, at.x, at.y, true);
    if (result == Nothing) return;
    zoom_clock_stop(object);  // an animated zoom would take the view away again
    object.gesture = std::make_unique<ScrollbarGesture>(axis, press, before);
    if (result == ClickedInZoomBox) axis_zoomed(object, axis);
    if (const double pixels = distance(object, axis, result); pixels != 0) scroll_axis(object, axis, pixels);
}

}  // namespace

void press_horscrollbar(Prseq& object, const Pointer& press) {
    press_scrollbar(object, horizontal_axis, press);
}
void press_vertscrollbar(Prseq& object, const Pointer& press) {
    press_scrollbar(object, vertical_axis, press);
}

}  // namespace tq
