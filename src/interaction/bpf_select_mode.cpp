#include "interaction/bpf_select_mode.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/bpf_edit_mode.h"
#include "interaction/bpf_points.h"
#include "model/bpf_editor.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

class BpfMarqueeGesture final : public Gesture {
 public:
    BpfMarqueeGesture(const Prseq& object, CurveOf curve, double press)
        : curve_(std::move(curve)), press_(press), were_selected_(selected_bpf_points(object, *curve_.bpf)) {}
    /// What is selected of a curve is no part of the document.
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        if (edited_bpf(object).bpf != curve_.bpf) return close(object);
        const Rect rect = TQ_Prseq_Events_Rect(object, *curve_.event);
        const double at = TQ_Prseq_Events_ConvertPointToUnityPoint(object, *curve_.event, to.at).x;
        const double from = std::clamp(std::min(press_, at), 0., 1.),
                     end = std::clamp(std::max(press_, at), 0., 1.);
        const double left = std::max(rect.x + from * rect.width, 0.);
        object.bpfediting.marquee = {left, rect.y, std::max(rect.x + end * rect.width - left, 0.),
                                     rect.height};
        select_covered(object, to.modifiers & modifier_shift);
        prseq_show(object, Change::Events);
    }

    void commit(Prseq& object) override { close(object); }
    void rollback(Prseq& object) override {
        select_bpf_points(object, curve_.bpf, were_selected_);
        close(object);
    }

 private:
    static void close(Prseq& object) {
        object.bpfediting.marquee = {};
        prseq_show(object, Change::Events);
    }

    void select_covered(Prseq& object, bool toggles) {
        const Rect& marquee = object.bpfediting.marquee;
        const PointRange range = bpf_points_between(object, curve_, marquee.x, marquee.x + marquee.width);
        std::vector<size_t> covered, selected;
        for (size_t i = range.first; i < range.last; ++i) covered.push_back(i);
        if (toggles)
            std::ranges::set_symmetric_difference(covered, were_selected_, std::back_inserter(selected));
        select_bpf_points(object, curve_.bpf, toggles ? std::move(selected) : std::move(covered));
    }

    CurveOf curve_;
    double press_;  ///< 0 to 1 of the event
    std::vector<size_t> were_selected_;
};

}  // namespace

void press_in_select_bpf_mode(Prseq& object, const Pointer& press) {
    if (choose_edited_event(object, press)) return;
    const CurveOf curve = edited_bpf(object);
    if (!curve.bpf) return;
    const BpfPoint at = TQ_Prseq_Events_ConvertPointToUnityPoint(object, *curve.event, press.at);
    const bool inside = in_unity(at.x) && in_unity(at.y);
    if (!inside || !(press.modifiers & modifier_shift)) select_bpf_points(object, curve.bpf, {});
    if (inside) object.gesture = std::make_unique<BpfMarqueeGesture>(object, curve, at.x);
}

}  // namespace tq
