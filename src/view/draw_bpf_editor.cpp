#include "view/draw_bpf_editor.h"

#include <cmath>

#include "instance/event.h"
#include "instance/symbols.h"
#include "view/gradient.h"

namespace tq {

namespace {

constexpr double handle_size = 6;  // pixels
const Rgba point_color = grey(100 / 255.), selected_color = grey(1, 0.9), current_color = grey(1, 0.9),
           marquee_color = grey(150 / 255., 0.5);

void draw_handle(Graphics& g, const Rect& handle, const Rgba& color) {
    jgraphics_set_source_jrgba(g, color);
    jgraphics_rectangle_rounded(g, handle, handle_size, handle_size);
    jgraphics_fill(g);
}

void outline_handle(Graphics& g, const Rect& handle, bool round) {
    jgraphics_set_source_jrgba(g, point_color);
    if (!round) return jgraphics_rectangle_draw_fast(g, handle, 1);
    jgraphics_set_line_width(g, 1);
    jgraphics_rectangle_rounded(g, handle, handle_size, handle_size);
    jgraphics_stroke(g);
}

}  // namespace

Rect bpf_point_handle(const EventView& view, const Event& event, const BpfPoint& point) {
    const double x = view.x_of(event.start + point.x * event.duration), y = view.y_of(event.pitch + point.y);
    return {x - handle_size / 2, y - handle_size / 2, handle_size, handle_size};
}

void draw_bpf_points(Graphics& g, const EventView& view, const Event& event, const BpfEditing& editing) {
    if (!event.activebpf) return;
    const Bpf& bpf = *event.activebpf;
    Rect last{-handle_size, 0, 0, 0};
    for (size_t i = 0; i < bpf.points.size(); ++i) {
        const Rect handle = bpf_point_handle(view, event, bpf.points[i]);
        if (handle.x + handle_size < 0) continue;
        if (handle.x > view.width) return;
        const bool current = editing.is_current(bpf, i), selected = editing.is_selected(bpf, i);
        const bool on_the_last =
            view.pixel(handle.x) == view.pixel(last.x) && view.pixel(handle.y) == view.pixel(last.y);
        if (on_the_last && !current && !selected) continue;
        draw_handle(g, handle, current ? current_color : selected ? selected_color : point_color);
        if (selected && !current) outline_handle(g, handle, bpf.name() == tq_sym_Pitch);
        last = handle;
    }
}

void TQ_Prseq_Events_DrawBpfMarquee(Graphics& g, const EventView& view, const Event& event,
                                    const BpfEditing& editing) {
    if (!(editing.marquee.width > 0)) return;
    const Rect rect = view.rect_of(event);
    jgraphics_set_source_jrgba(g, marquee_color);
    jgraphics_rectangle_fill_fast(g, {editing.marquee.x, rect.y, editing.marquee.width, rect.height});
}

}  // namespace tq
