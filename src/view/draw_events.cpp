#include "view/draw_events.h"

#include <algorithm>

#include "host/text.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "model/tracks.h"
#include "view/draw_buffers.h"
#include "view/draw_curves.h"
#include "view/event_style.h"
#include "view/gradient.h"

namespace tq {

namespace {

constexpr double smallest_text = 8, largest_text = 12, label_margin = 6;

double text_size(double height) { return std::min(std::max(height, smallest_text), largest_text); }

/// The light falls from the top left; all four lines lie inside the rectangle.
void draw_bevel(Graphics& g, const Rect& r, const EventStyle& style) {
    const double right = r.x + r.width, bottom = r.y + r.height;
    jgraphics_set_source_jrgba(g, style.dark);
    jgraphics_line_draw_fast(g, {r.x, bottom - 0.5}, {right, bottom - 0.5}, 1);
    jgraphics_line_draw_fast(g, {right - 1, bottom}, {right - 1, r.y}, 2);
    jgraphics_set_source_jrgba(g, style.light);
    jgraphics_line_draw_fast(g, {r.x + 0.5, bottom}, {r.x + 0.5, r.y}, 1);
    jgraphics_line_draw_fast(g, {r.x, r.y + 0.5}, {right, r.y + 0.5}, 1);
}

void draw_outline(Graphics& g, const Rect& rect, const EventStyle& style) {
    if (style.active) return draw_bevel(g, rect, style);
    jgraphics_set_source_jrgba(g, style.frame);
    jgraphics_rectangle_draw_fast(g, rect, 1);
}

void draw_label(Graphics& g, const EventShape& shape, const EventStyle& style) {
    JTextLayout text{.text = shape.event->label.text(),
                     .font = jfont_create("Geneva", text_size(shape.rect.height)),
                     .horizontal = HorizontalJustification::Centered,
                     .vertical = VerticalJustification::Centered,
                     .color = style.labeltext};
    const Size size = jtextlayout_measure(text);
    text.box = {shape.rect.x, shape.rect.y - size.height, size.width + label_margin, size.height};
    if (text.box.x + text.box.width <= 0) return;
    jgraphics_set_source_jrgba(g, grey(0.5, 0.1));
    jgraphics_rectangle_fill_fast(g, text.box);
    jgraphics_set_source_jrgba(g, grey(0.5, 0.5));
    jgraphics_rectangle_draw_fast(g, text.box, 1);
    jtextlayout_draw(g, text);
}

void draw_message(Graphics& g, const EventShape& shape, const EventStyle& style) {
    jtextlayout_draw(g, {.text = shape.event->message.text(),
                         .font = jfont_create("Courier", text_size(shape.rect.height)),
                         .box = shape.rect,
                         .ellipsis = true,
                         .color = style.messagetext});
}

struct Drawing {
    const Prseq& object;
    Graphics& g;
    const EventView& view;
    EventStyle unselected, selected;

    const EventStyle& style_of(const Event& event) const { return event.selected ? selected : unselected; }
};

Drawing drawing_of(const Prseq& object, Graphics& g, const EventView& view, const Track& track, bool active) {
    return {object, g, view, event_style(track, active, false, view.rowheight),
            event_style(track, active, true, view.rowheight)};
}

void TQ_Prseq_Events_DrawEvent(const Drawing& d, const EventShape& shape, const EventStyle& style,
                               bool outline) {
    if (shape.body) {
        draw_gradient(d.g, *style.fill, shape.rect);
        if (outline) draw_outline(d.g, shape.rect, style);
        if (shape.buffer) TQ_Prseq_Buffer_DrawBuffer(d.object, d.g, d.view, shape, style.active);
        if (shape.label) draw_label(d.g, shape, style);
        if (shape.message) draw_message(d.g, shape, style);
    }
    if (d.object.showbpfs && style.active)
        TQ_Prseq_Events_DrawBpfsOnOneTrack(d.object, d.g, d.view, shape, style);
}

ShapeOptions shape_options(const Prseq& object, bool active_track) {
    return {.labels = object.showlabels,
            .messages = object.showmessages,
            .buffers = object.showbuffers,
            .curves = object.showbpfs && active_track,
            .without = bpf_edited_event(object)};
}

}  // namespace

void TQ_Prseq_Tracks_DrawEventsOnAllTracks(const Prseq& object, Graphics& g) {
    for (long i = 0; i < static_cast<long>(object.tracks.size()); ++i)
        if (i != object.activetrack) TQ_Prseq_Tracks_DrawEventsOnOneTrack(object, g, i);
    TQ_Prseq_Tracks_DrawEventsOnOneTrack(object, g, object.activetrack);
}

void TQ_Prseq_Tracks_DrawEventsOnOneTrack(const Prseq& object, Graphics& g, long index, bool all) {
    const Track* track = track_at(object, index);
    if (!track || !track->visible) return;
    const bool active = index == object.activetrack;
    const EventView view(object, g.ratio());
    const Drawing drawing = drawing_of(object, g, view, *track, active);
    ShapeOptions options = shape_options(object, active);
    options.all = all;
    for (const EventShape& shape : build_event_shapes(*track, view, options))
        TQ_Prseq_Events_DrawEvent(drawing, shape, drawing.style_of(*shape.event), true);
}

void draw_edited_event(const Prseq& object, Graphics& g) {
    const Event* event = bpf_edited_event(object);
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!event || !track) return;
    const EventView view(object, g.ratio());
    jgraphics_set_source_jrgba(g, grey(0, 0.3));
    jgraphics_rectangle_fill_fast(g, {0, 0, view.width, view.height});
    const Drawing drawing = drawing_of(object, g, view, *track, true);
    TQ_Prseq_Events_DrawEvent(drawing, shape_of(*event, view, shape_options(object, true)),
                              drawing.unselected, false);
}

}  // namespace tq
