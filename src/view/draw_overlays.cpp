#include "view/draw_overlays.h"

#include <fmt/printf.h>

#include <algorithm>

#include "host/image.h"
#include "host/text.h"
#include "instance/prseq.h"
#include "model/bpf_editor.h"
#include "model/tracks.h"
#include "view/gradient.h"
#include "view/linecursor.h"

namespace tq {

namespace {

constexpr double hint_text_size = 36, hint_corner = 36, bpf_label_size = 12;
constexpr Point bpf_label_offset{5, 3};

/// The part of a rectangle that lies in a display of the given size.
Rect cut_to(const Rect& rect, const Rect& display) {
    const double x = std::max(rect.x, 0.), y = std::max(rect.y, 0.);
    return {x, y, std::max(std::min(rect.x + rect.width, display.width) - x, 0.),
            std::max(std::min(rect.y + rect.height, display.height) - y, 0.)};
}

}  // namespace

void draw_background(const Prseq& object, Graphics& g) {
    jgraphics_set_source_jrgba(g, object.upperdisplaycolor);
    jgraphics_rectangle_fill_fast(g, {0, 0, object.width, object.height});
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

Rect bpf_label_place(const Prseq& object) {
    const Size size = jtextlayout_measure(bpf_label(object), jfont_create("Geneva", bpf_label_size));
    return {bpf_label_offset.x, bpf_label_offset.y, size.width, size.height};
}

void TQ_Prseq_Tracks_DrawBpfLabel(const Prseq& object, Graphics& g) {
    jtextlayout_draw(g, {.text = bpf_label(object),
                         .font = jfont_create("Geneva", bpf_label_size),
                         .box = bpf_label_place(object),
                         .horizontal = HorizontalJustification::Centered,
                         .color = grey((bpf_edited_event(object) ? 230 : 120) / 255.)});
}

Rect linecursor_place(const Prseq& object) {
    const double x = TQ_Prseq_LineCursor_CalculateLineCursorPositionInDisplay(object) -
                     object.maindisplay.horizontalscroll;
    const Rect &display = object.maindisplay.rect, &ruler = object.layout[Part::TimeDisplay];
    return {display.x + x, ruler.y, object.linecursor.line->size().width,
            ruler.height + display.height + object.layout[Part::ParameterDisplay].height};
}

bool linecursor_in_view(const Prseq& object) {
    if (!object.linecursor.line) return false;
    const Rect& display = object.maindisplay.rect;
    const double x = linecursor_place(object).x;
    return display.height >= 0 && x >= display.x && x < display.x + display.width;
}

void draw_linecursor(const Prseq& object, Graphics& g) {
    const Rect place = linecursor_place(object);
    jgraphics_image_surface_draw(g, *object.linecursor.line, {0, 0, place.width, 1},
                                 {0, 0, place.width, place.height});
}

Rect marquee_place(const Prseq& object) {
    const MainDisplay& md = object.maindisplay;
    const Rect marquee = cut_to(md.marquee, md.rect);
    return {md.rect.x + marquee.x, md.rect.y + marquee.y, marquee.width, marquee.height};
}

void draw_marquee(const Prseq& object, Graphics& g) {
    const Rect place = marquee_place(object), all{0, 0, place.width, place.height};
    jgraphics_set_source_jrgba(g, object.defaults.marqueefill);
    jgraphics_rectangle_fill_fast(g, all);
    jgraphics_set_source_jrgba(g, object.defaults.marqueeframe);
    jgraphics_rectangle_draw_fast(g, all, 1);
}

void draw_bpf_hint(const Prseq& object, Graphics& g) {
    draw_centered_text(object, g, " Alt-click an event to edit its bpfs ");
}

void draw_centered_text(const Prseq& object, Graphics& g, const std::string& text) {
    const Rect& display = object.maindisplay.rect;
    JTextLayout layout{.text = text,
                       .font = jfont_create("Geneva", hint_text_size),
                       .box = {0, 0, display.width, display.height},
                       .horizontal = HorizontalJustification::Centered,
                       .vertical = VerticalJustification::Centered,
                       .color = grey(1, 0.8)};
    const Size size = jtextlayout_measure(layout);
    jgraphics_set_source_jrgba(g, grey(0, 0.3));
    jgraphics_rectangle_rounded(
        g, {(display.width - size.width) / 2, (display.height - size.height) / 2, size.width, size.height},
        hint_corner, hint_corner);
    jgraphics_fill(g);
    jtextlayout_draw(g, layout);
}

void draw_border(const Prseq& object, Graphics& g) {
    jgraphics_set_source_jrgba(g, grey(0));
    jgraphics_rectangle_draw_fast(g, {0, 0, object.width, object.height}, 1);
}

}  // namespace tq
