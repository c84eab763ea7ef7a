#include "view/draw_events.h"

#include <algorithm>

#include "host/text.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "model/tracks.h"
#include "view/curves.h"
#include "view/draw_bpf_editor.h"
#include "view/draw_buffers.h"
#include "view/draw_curves.h"
#include "view/event_sprites.h"
#include "view/gradient.h"
#include "view/visible_events.h"

namespace tq {

namespace {

constexpr double smallest_text = 8, largest_text = 12, label_margin = 6;

double text_size(double height) { return std::min(std::max(height, smallest_text), largest_text); }

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

/// One kind of events: of a track, selected or not.
struct Drawing {
    Drawing(const Prseq& o, Graphics& graphics, const EventView& v, const Track& track, bool active,
            bool selected)
        : object(o), g(graphics), view(v), style(event_style(track, active, selected, v.rowheight)) {}
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    const Prseq& object;
    Graphics& g;
    const EventView& view;
    const EventStyle style;
    EventSprites sprites{style, view.ratio};
};

void draw_curves(const Drawing& d, const EventShape& shape) {
    if (d.object.showbpfs && d.style.active)
        TQ_Prseq_Events_DrawBpfsOnOneTrack(d.object, d.g, d.view, shape, d.style);
}

/// What stands on a body, and the curves.
void draw_what_is_on(const Drawing& d, const EventShape& shape) {
    if (shape.body) {
        if (shape.buffer) TQ_Prseq_Buffer_DrawBuffer(d.object, d.g, d.view, shape, d.style.active);
        if (shape.label) draw_label(d.g, shape, d.style);
        if (shape.message) draw_message(d.g, shape, d.style);
    }
    draw_curves(d, shape);
}

void TQ_Prseq_Events_DrawEvent(Drawing& d, const EventShape& shape) {
    if (shape.body) {
        const int left = d.view.pixel(shape.rect.x), right = d.view.pixel(shape.rect.x + shape.rect.width);
        const int top = d.view.pixel(shape.rect.y), bottom = d.view.pixel(shape.rect.y + shape.rect.height);
        const WidenedSurface body{&d.sprites.of_size(right - left, bottom - top), left, right};
        if (bottom > top) jgraphics_image_surfaces_draw_widened(d.g, {&body, 1}, top);
    }
    draw_what_is_on(d, shape);
}

/// Nothing asks for the event itself, unless it has curves that are drawn.
void draw_plain_event(Drawing& d, const VisibleEvent& visible, EventBodies& bodies) {
    const EventView& view = d.view;
    const int row = visible.entry->look.row;
    const int top = view.pixel(view.y_of(row + 1)), bottom = view.pixel(view.y_of(row));
    if (bottom <= top) return;
    const int width = visible.right - visible.left;
    bodies.add(d.sprites.of_size(width, bottom - top), row, visible.left, visible.right, top);
    if (!d.style.active || !d.object.showbpfs || width / view.ratio < curve_detail_width) return;
    bodies.draw(d.g);
    draw_curves(d, {visible.entry->event.get(), view.rect_of(*visible.entry->event)});
}

ShapeOptions shape_options(const Prseq& object, bool active_track) {
    return {.labels = object.showlabels,
            .messages = object.showmessages,
            .buffers = object.showbuffers,
            .curves = object.showbpfs && active_track,
            .without = bpf_edited_event(object)};
}

/// The visible events of one kind.
struct Pass {
    const Track* track;
    bool active, selected;
    ShapeOptions options;
    std::vector<VisibleEvent> events;
};

void add_passes(std::vector<Pass>& passes, const Prseq& object, long index, bool all) {
    const Track* track = track_at(object, index);
    if (!track || !track->visible) return;
    const bool active = index == object.activetrack;
    ShapeOptions options = shape_options(object, active);
    options.all = all;
    for (bool selected : {false, true}) passes.push_back({track, active, selected, options, {}});
}

void draw_pass(const Prseq& object, Graphics& g, const EventView& view, const Pass& pass) {
    if (pass.events.empty()) return;
    Drawing drawing(object, g, view, *pass.track, pass.active, pass.selected);
    EventBodies bodies;
    for (const VisibleEvent& visible : pass.events) {
        if (visible.plain) {
            draw_plain_event(drawing, visible, bodies);
        } else if (auto shape = shape_in_view(*visible.entry->event, view, pass.options)) {
            bodies.draw(g);
            TQ_Prseq_Events_DrawEvent(drawing, *shape);
        }
    }
    bodies.draw(g);
}

/// Looked for from the topmost down, so that what is covered is not even looked at; drawn from the bottom up.
void draw_passes(const Prseq& object, Graphics& g, std::vector<Pass> passes) {
    const EventView view(object, g.ratio());
    const Rect part = g.clip();
    Cover cover = cover_around(view, part);
    for (auto pass = passes.rbegin(); pass != passes.rend(); ++pass)
        pass->events = build_visible_events(*pass->track, pass->selected, view, part, pass->options, cover);
    for (const Pass& pass : passes) draw_pass(object, g, view, pass);
}

}  // namespace

void TQ_Prseq_Tracks_DrawEventsOnAllTracks(const Prseq& object, Graphics& g, bool all) {
    std::vector<Pass> passes;
    for (long i = 0; i < static_cast<long>(object.tracks.size()); ++i)
        if (i != object.activetrack) add_passes(passes, object, i, all);
    add_passes(passes, object, object.activetrack, all);
    draw_passes(object, g, std::move(passes));
}

void draw_edited_event(const Prseq& object, Graphics& g) {
    const Event* event = bpf_edited_event(object);
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!event || !track) return;
    const EventView view(object, g.ratio());
    jgraphics_set_source_jrgba(g, grey(0, 0.3));
    jgraphics_rectangle_fill_fast(g, {0, 0, view.width, view.height});
    const Drawing drawing(object, g, view, *track, true, false);
    const EventShape shape = shape_of(*event, view, shape_options(object, true));
    draw_event_body(g, shape.rect, drawing.style, false);
    draw_what_is_on(drawing, shape);
    if (object.showbpfs) draw_bpf_points(g, view, *event, object.bpfediting);
    TQ_Prseq_Events_DrawBpfMarquee(g, view, *event, object.bpfediting);
}

}  // namespace tq
