#include "view/event_shapes.h"

#include <algorithm>
#include <limits>

#include "model/track.h"
#include "shell/symbols.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

/// Pixels above an event that its label may take.
constexpr double label_height = 20;

/// What has been painted of a row of pixels so far.
struct Row {
    double left = -std::numeric_limits<double>::infinity(), right = left;
    double label = left;
};

class Shapes {
 public:
    Shapes(const EventView& view, const ShapeOptions& options)
        : view_(view),
          options_(options),
          labels_(options.labels && view.rowheight >= text_rowheight),
          top_row_(static_cast<long>(-view.rowheight * view.ratio) - 1),
          rows_{std::vector<Row>(row_count()), std::vector<Row>(row_count())} {}

    void add(const Event& event) {
        if (&event == options_.without) return;
        const double bottom = view_.y_of(event.pitch);
        const double above = labels_ && !event.label.empty() ? label_height : 0;
        if (bottom <= 0 || bottom - view_.rowheight - above >= view_.height) {
            if (options_.curves && curve_in_view(event)) put({&event, view_.rect_of(event), false, false});
            return;
        }
        EventShape shape{&event, view_.rect_of(event), true, false};
        Row& row = rows_[event.selected ? 1 : 0][row_of(shape.rect.y)];
        const double right = shape.rect.x + shape.rect.width;
        if (shape.rect.x == row.left && right <= row.right) return;
        if (shape.rect.x != row.left) row.right = right;
        row.left = shape.rect.x;
        row.right = std::max(row.right, right);
        shape.label = labels_ && !event.label.empty() && shape.rect.x >= row.label + label_distance;
        if (shape.label) row.label = shape.rect.x;
        if (right <= 0 && !shape.label) return;
        put(shape);
    }

    std::vector<EventShape> take() {
        auto& [unselected, selected] = shapes_;
        unselected.insert(unselected.end(), selected.begin(), selected.end());
        return std::move(unselected);
    }

 private:
    size_t row_count() const {
        return static_cast<size_t>(
                   std::max(0., (view_.height + 2 * view_.rowheight + label_height) * view_.ratio)) +
               4;
    }
    size_t row_of(double y) const {
        const long row = static_cast<long>(y * view_.ratio) - top_row_;
        return std::min(static_cast<size_t>(std::max(row, 0L)), rows_[0].size() - 1);
    }
    void put(const EventShape& shape) { shapes_[shape.event->selected ? 1 : 0].push_back(shape); }

    /// Whether a curve that bends the pitch reaches into the view, though the event's row is outside.
    bool curve_in_view(const Event& event) const {
        for (const BpfRef& bpf : event.bpfs) {
            if (bpf->name != tq_sym_Pitch) continue;
            auto [low, high] = std::ranges::minmax(bpf->points, {}, &BpfPoint::y);
            if (low.y != high.y && view_.y_of(event.pitch + high.y) < view_.height &&
                view_.y_of(event.pitch + low.y) > 0)
                return true;
        }
        return false;
    }

    const EventView& view_;
    const ShapeOptions& options_;
    const bool labels_;
    const long top_row_;
    std::vector<Row> rows_[2];
    std::vector<EventShape> shapes_[2];
};

}  // namespace

std::vector<EventShape> build_event_shapes(const Track& track, const EventView& view,
                                           const ShapeOptions& options) {
    const bool labels = options.labels && view.rowheight >= text_rowheight;
    const double from = view.ms_at(-(labels ? label_reach : minimum_event_width)),
                 to = view.ms_at(view.width);
    Shapes shapes(view, options);
    track.events.touching(from, to, [&](const Event& event) { shapes.add(event); });
    return shapes.take();
}

}  // namespace tq
