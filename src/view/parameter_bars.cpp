#include "view/parameter_bars.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "host/round.h"
#include "instance/prseq.h"
#include "model/parameters.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

constexpr double bar_width = 5, margin = 2;  // pixels; the margin is below the bars and above

/// What bars that begin on one pixel have of their own: their height, and whether they hang down.
struct Height {
    double top, bottom;
    bool selected;
    bool hangs(double foot) const { return top >= foot; }
    double length() const { return bottom - top; }
};

/// Collects the bars of one track, pixel by pixel from the left.
class BarBuilder {
 public:
    BarBuilder(const Prseq& object, const Track& track, double ratio, int layers)
        : display_(object.layout[Part::ParameterDisplay]),
          page_(TQ_Prseq_Maindisplay_GetTotalPageSizeHorizontal(object.maindisplay) / object.timelinelength),
          scroll_(object.maindisplay.horizontalscroll),
          ratio_(ratio),
          foot_(snap(display_.height - margin)),
          parameter_(track.displayedparameter),
          range_(parameter_range(track, parameter_)),
          layers_(static_cast<size_t>(layers)) {}

    std::vector<ParameterBar> build(const Track& track) {
        if (!range_ || !(page_ > 0)) return {};
        const double from = (scroll_ - bar_width) / page_, to = (scroll_ + display_.width) / page_;
        track.events.find_from(from, [&](const Event& event) {
            if (event.start > to) return true;
            add(event);
            return false;
        });
        end_group();
        return std::move(bars_);
    }

 private:
    double snap(double value) const { return jgraphics_round(value * ratio_) / ratio_; }

    void add(const Event& event) {
        const double x = snap(event.start * page_ - scroll_);
        if (x != x_) end_group();
        x_ = x;
        const double length = (display_.height - 2 * margin) * range_->unity(event_value(event, parameter_));
        const double end = std::clamp(snap(display_.height - margin - length), 0., display_.height);
        if (end != foot_) group_.push_back({std::min(end, foot_), std::max(end, foot_), event.selected});
    }

    /// Backwards: a bar is hidden by as many later ones that are as long, on the same side.
    void end_group() {
        std::vector<double> longest[2];
        const size_t first = bars_.size();
        for (auto h = group_.rbegin(); h != group_.rend(); ++h) {
            std::vector<double>& over = longest[h->hangs(foot_)];
            if (over.size() == layers_ && over.back() >= h->length()) continue;
            over.insert(std::ranges::upper_bound(over, h->length(), std::greater()), h->length());
            if (over.size() > layers_) over.pop_back();
            bars_.push_back({{x_, h->top, thickness(), h->length()}, h->selected});
        }
        std::reverse(bars_.begin() + static_cast<std::ptrdiff_t>(first), bars_.end());
        group_.clear();
    }

    double thickness() const { return std::max(1., jgraphics_round(bar_width * ratio_)) / ratio_; }

    Rect display_;
    double page_, scroll_, ratio_, foot_;
    Symbol parameter_;
    std::optional<ParameterRange> range_;
    size_t layers_;
    double x_ = -HUGE_VAL;
    std::vector<Height> group_;
    std::vector<ParameterBar> bars_;
};

}  // namespace

std::vector<ParameterBar> parameter_bars(const Prseq& object, const Track& track, double ratio, int layers) {
    return BarBuilder(object, track, ratio, layers).build(track);
}

}  // namespace tq
