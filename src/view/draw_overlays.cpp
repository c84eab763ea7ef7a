#include "view/draw_overlays.h"

#include <fmt/printf.h>

#include <algorithm>

#include "host/image.h"
#include "host/text.h"
#include "model/tracks.h"
#include "shell/prseq.h"
#include "view/gradient.h"
#include "view/invalidate.h"

namespace tq {

namespace {

constexpr double hint_text_size = 36, hint_corner = 36, bpf_label_size = 12;
constexpr Point bpf_label_offset{5, 3};

/// The part of a rectangle that lies in a display of the given size.
Rect cut_to(const Rect& rect, const Rect& display) {
    const double x = std::max(rect.x, 0.), y = std::max(rect.y, 0.);
    return {x, y, std::min(rect.x + rect.width - x, display.width),
            std::min(rect.y + rect.height - y, display.height)};
}

}  // namespace

void draw_background(Prseq& object, Graphics& view) {
    if (auto g = jbox_start_layer(object, view, tq_sym_background_layer, object.width, object.height)) {
        jgraphics_set_source_jrgba(*g, object.upperdisplaycolor);
        jgraphics_rectangle_fill_fast(*g, {0, 0, object.width, object.height});
        jbox_end_layer(object, tq_sym_background_layer);
    }
    jbox_paint_layer(object, view, tq_sym_background_layer, 0, 0);
}

std::string bpf_label(const Prseq& object) {
    const Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track || track->activebpfindex < 0 ||
        track->activebpfindex >= static_cast<long>(track->bpftypes.size()))
        return {};
    if (track->activebpfindex == 0) return "Bpf: Pitch";
    const BpfType& type = *track->bpftypes[static_cast<size_t>(track->activebpfindex)];
    return fmt::sprintf("Bpf: %s (%.2f-%.2f)", type.name.text(), type.minimum, type.maximum);
}

void TQ_Prseq_Tracks_DrawBpfLabel(Prseq& object, Graphics& view) {
    const Rect& display = object.maindisplay.rect;
    if (!object.showbpfs || !(display.width > 0 && display.height > 0)) return;
    const bool editing = object.bpfeditor && object.bpfeditingevent;
    JTextLayout text{.text = bpf_label(object),
                     .font = jfont_create("Geneva", bpf_label_size),
                     .horizontal = HorizontalJustification::Centered,
                     .color = grey((editing ? 230 : 120) / 255.)};
    const Size size = jtextlayout_measure(text);
    text.box = {display.x + bpf_label_offset.x, display.y + bpf_label_offset.y, size.width, size.height};
    jtextlayout_draw(view, text);
}

void draw_linecursor(Prseq& object, Graphics& view) {
    const LineCursor& cursor = object.linecursor;
    const Rect& display = object.maindisplay.rect;
    if (!cursor.line) return;
    const double width = cursor.line->size().width;
    const double height = object.layout[Part::TimeDisplay].height + display.height +
                          object.layout[Part::ParameterDisplay].height;
    if (auto g = jbox_start_layer(object, view, tq_sym_linecursor_layer, width, height)) {
        jgraphics_image_surface_draw(*g, *cursor.line, {0, 0, width, 1}, {0, 0, width, height});
        jbox_end_layer(object, tq_sym_linecursor_layer);
    }
    const double x = cursor.displayposition - object.maindisplay.horizontalscroll;
    if (x >= 0 && x < display.width)
        jbox_paint_layer(object, view, tq_sym_linecursor_layer, display.x + x,
                         object.layout[Part::TimeDisplay].y);
}

void draw_marquee(Prseq& object, Graphics& view) {
    const MainDisplay& md = object.maindisplay;
    const Rect marquee = cut_to(md.marquee, md.rect);
    if (auto g = jbox_start_layer(object, view, tq_sym_marquee_layer, marquee.width, marquee.height)) {
        const Rect all{0, 0, marquee.width, marquee.height};
        jgraphics_set_source_jrgba(*g, object.defaults.marqueefill);
        jgraphics_rectangle_fill_fast(*g, all);
        jgraphics_set_source_jrgba(*g, object.defaults.marqueeframe);
        jgraphics_rectangle_draw_fast(*g, all, 1);
        jbox_end_layer(object, tq_sym_marquee_layer);
    }
    jbox_paint_layer(object, view, tq_sym_marquee_layer, md.rect.x + marquee.x, md.rect.y + marquee.y);
}

void draw_centered_text(Prseq& object, Graphics& view, const std::string& text) {
    const Rect& display = object.maindisplay.rect;
    if (auto g = jbox_start_layer(object, view, tq_sym_centeredtext_layer, display.width, display.height)) {
        JTextLayout layout{.text = text,
                           .font = jfont_create("Geneva", hint_text_size),
                           .box = {0, 0, display.width, display.height},
                           .horizontal = HorizontalJustification::Centered,
                           .vertical = VerticalJustification::Centered,
                           .color = grey(1, 0.8)};
        const Size size = jtextlayout_measure(layout);
        jgraphics_set_source_jrgba(*g, grey(0, 0.3));
        jgraphics_rectangle_rounded(
            *g,
            {(display.width - size.width) / 2, (display.height - size.height) / 2, size.width, size.height},
            hint_corner, hint_corner);
        jgraphics_fill(*g);
        jtextlayout_draw(*g, layout);
        jbox_end_layer(object, tq_sym_centeredtext_layer);
    }
    jbox_paint_layer(object, view, tq_sym_centeredtext_layer, display.x, display.y);
}

void draw_border(Prseq& object, Graphics& view) {
    if (auto g = jbox_start_layer(object, view, tq_sym_border_layer, object.width, object.height)) {
        jgraphics_set_source_jrgba(*g, grey(0));
        jgraphics_rectangle_draw_fast(*g, {0, 0, object.width, object.height}, 1);
        jbox_end_layer(object, tq_sym_border_layer);
    }
    jbox_paint_layer(object, view, tq_sym_border_layer, 0, 0);
}

}  // namespace tq
