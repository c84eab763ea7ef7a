#include "view/visible_events.h"

#include <algorithm>
#include <cmath>

#include "instance/track.h"
#include "view/curves.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

/// Pixels of the view: how far a straight curve's line reaches over its event's edge, with some to spare.
constexpr double curve_overhang = 2.5;

class Visitor {
 public:
    Visitor(bool selected, const EventView& view, const ShapeOptions& options, Cover& cover,
            std::vector<VisibleEvent>& visible)
        : view_(view),
          options_(options),
          cover_(cover),
          visible_(visible),
          selected_(selected ? unsigned{EventLook::Selected} : 0u),
          reaching_out_(flags_that_reach_out()),
          neighbours_(options.curves ? std::min(EventLooks::row_count, curve_reach(view)) : 0) {}

    bool enters(double start, double end, const EventLooks& looks) const {
        if (selected_ && !looks.has(EventLook::Selected)) return false;
        if (options_.all || looks.has(reaching_out_)) return true;
        // No event is wider than the stretch; where that is too narrow for curves, none reaches out.
        const bool curves = view_.x_of(end) - view_.x_of(start) + 1 / view_.ratio >= curve_detail_width;
        return !cover_.covers(curves ? looks.widened(neighbours_) : looks.rows(), view_.left_of(start),
                              view_.right_of(end, end));
    }

    void visit(const EventEntry& entry) {
        const EventLook look = entry.look;
        if ((look.flags & EventLook::Selected) != selected_ || entry.event.get() == options_.without) return;
        VisibleEvent event{&entry, view_.left_of(entry.start), view_.right_of(entry.start, entry.end),
                           !look.has(reaching_out_ | EventLook::Fractional)};
        if (!options_.all && !look.has(reaching_out_) && covered(event)) return;
        if (!look.has(EventLook::Fractional | EventLook::OffRows))
            cover_.add(look.row, event.left, event.right);
        visible_.push_back(event);
    }

 private:
    /// What makes an event's paint leave its body, as far as it is shown.
    unsigned flags_that_reach_out() const {
        const bool texts = (options_.labels || options_.messages) && view_.rowheight >= text_rowheight;
        return EventLook::OffRows | (texts ? unsigned{EventLook::Text} : 0u) |
               (options_.buffers ? unsigned{EventLook::Linked} : 0u) |
               (options_.curves ? unsigned{EventLook::Bent} : 0u);
    }
    static int curve_reach(const EventView& view) {
        return static_cast<int>(
            std::ceil(std::max(curve_overhang, 1 / view.ratio) / std::max(view.rowheight, 1e-3)));
    }
    bool covered(const VisibleEvent& event) const {
        const EventLook look = event.entry->look;
        if (!cover_.covers(look.row, event.left, event.right)) return false;
        const bool curve = neighbours_ > 0 && (event.right - event.left) / view_.ratio >= curve_detail_width;
        const int above = (look.has(EventLook::Fractional) ? 1 : 0) + (curve ? neighbours_ : 0),
                  below = curve ? neighbours_ : 0;
        for (int row = std::max(look.row - below, 0);
             row <= std::min(look.row + above, EventLooks::row_count - 1); ++row)
            if (row != look.row && !cover_.covers(row, event.left, event.right)) return false;
        return true;
    }

    const EventView& view_;
    const ShapeOptions& options_;
    Cover& cover_;
    std::vector<VisibleEvent>& visible_;
    unsigned selected_;
    unsigned reaching_out_;
    int neighbours_;  ///< rows above and below that straight curves may touch
};

}  // namespace

Cover cover_around(const EventView& view, const Rect& part) {
    Cover cover(static_cast<int>(std::ceil(view.width * view.ratio)));
    const int top = view.pixel(part.y), bottom = view.pixel(part.y + part.height);
    for (int row = 0; row < EventLooks::row_count; ++row)
        if (view.pixel(view.y_of(row)) <= top || view.pixel(view.y_of(row + 1)) >= bottom) cover.add_row(row);
    return cover;
}

std::vector<VisibleEvent> build_visible_events(const Track& track, bool selected, const EventView& view,
                                               const Rect& part, const ShapeOptions& options, Cover& cover) {
    std::vector<VisibleEvent> visible;
    if (selected && track.events.selected().empty()) return visible;
    const bool labels = options.labels && view.rowheight >= text_rowheight;
    const double from = view.ms_at(part.x - (labels ? label_reach : minimum_event_width) - 1),
                 to = view.ms_at(part.x + part.width + 1);
    Visitor visitor(selected, view, options, cover, visible);
    track.events.touching_backwards(from, to, visitor);
    std::ranges::reverse(visible);
    return visible;
}

}  // namespace tq
