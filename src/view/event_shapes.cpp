#include "view/event_shapes.h"

#include <algorithm>
#include <cmath>

#include "instance/symbols.h"
#include "instance/track.h"
#include "view/curves.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

/// Pixels above an event that its label may take.
constexpr double label_height = 20;

/// What has been painted last of the events whose top is in a row of pixels, and when: how many others came
/// before.
struct Row {
    double left = 0, right = 0;
    size_t painted = 0;  ///< 0: nothing yet
};

bool is_straight(const Bpf& bpf) {
    return std::ranges::all_of(bpf.points, [&](const BpfPoint& p) { return p.y == bpf.points.front().y; });
}

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
            if (options_.curves && curve_in_view(event)) put({&event, view_.rect_of(event), false});
            return;
        }
        const EventShape shape = shape_of(event, view_, options_);
        if (shape.rect.x + shape.rect.width <= 0 && !shape.label) return;
        if (options_.all || !repeats_what_is_there(shape)) put(shape);
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

    /// Remembers the event, unless it has exactly the pixels of the one before it on its row, has nothing on
    /// it, and nothing came between them that could cover a part of it.
    bool repeats_what_is_there(const EventShape& shape) {
        const bool selected = shape.event->selected;
        std::vector<Row>& rows = rows_[selected ? 1 : 0];
        const size_t at = row_of(shape.rect.y);
        Row& row = rows[at];
        const double left = shape.rect.x, right = shape.rect.x + shape.rect.width;
        if (row.painted && row.left == left && row.right == right && is_plain(shape) &&
            !covered_since(rows, at, row.painted))
            return true;
        row = {left, right, ++painted_};
        if (!is_plain(shape)) reaching_out_ = painted_;
        return false;
    }
    bool is_plain(const EventShape& shape) const {
        if (shape.label || shape.message || shape.buffer) return false;
        return !options_.curves ||
               (shape.rect.width < curve_detail_width &&
                std::ranges::all_of(shape.event->bpfs, [](const BpfRef& bpf) { return is_straight(*bpf); }));
    }
    /// Rows overlap where pitches are fractions; labels and curves reach out of theirs.
    bool covered_since(const std::vector<Row>& rows, size_t at, size_t painted) const {
        if (reaching_out_ > painted) return true;
        const auto reach = static_cast<size_t>(std::max(std::ceil(view_.rowheight * view_.ratio) - 1, 0.));
        const size_t first = at > reach ? at - reach : 0, last = std::min(at + reach, rows.size() - 1);
        for (size_t i = first; i <= last; ++i)
            if (i != at && rows[i].painted > painted) return true;
        return false;
    }
    /// Whether a curve that bends the pitch reaches into the view, though the event's row is outside.
    bool curve_in_view(const Event& event) const {
        for (const BpfRef& bpf : event.bpfs) {
            if (bpf->name() != tq_sym_Pitch) continue;
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
    size_t painted_ = 0;       ///< how many so far
    size_t reaching_out_ = 0;  ///< the last of them that has something on it
    std::vector<Row> rows_[2];
    std::vector<EventShape> shapes_[2];
};

}  // namespace

EventShape shape_of(const Event& event, const EventView& view, const ShapeOptions& options) {
    const bool text = view.rowheight >= text_rowheight;
    return {.event = &event,
            .rect = view.rect_of(event),
            .body = true,
            .label = options.labels && text && !event.label.empty(),
            .message = options.messages && text && !event.message.empty(),
            .buffer = options.buffers && !event.link().name.empty()};
}

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
