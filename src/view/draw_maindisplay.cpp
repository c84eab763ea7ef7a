#include "view/draw_maindisplay.h"

#include "instance/prseq.h"
#include "view/draw_events.h"
#include "view/draw_overlays.h"
#include "view/grid.h"

namespace tq {

namespace {

constexpr double grid_line_width = 0.5;

/// The lines between lanes are each drawn by the lane below.
void draw_note_lanes(const Prseq& object, Graphics& g, const EventView& view) {
    double bottom = 0;
    for (const NoteLane& lane : build_note_lanes(view)) {
        const Rect& r = lane.rect;
        jgraphics_set_source_jrgba(
            g, lane.black ? object.maindisplayblackkeycolor : object.maindisplaywhitekeycolor);
        jgraphics_rectangle_fill_fast(g, r);
        jgraphics_set_source_jrgba(g, object.maindisplaysubdivisionlinecolor);
        jgraphics_line_draw_fast(g, {0, r.y}, {0, r.y + r.height}, 1);
        if (lane.octave) jgraphics_set_source_jrgba(g, object.maindisplaymaindivisionlinecolor);
        jgraphics_line_draw_fast(g, {0, r.y}, {view.width, r.y}, 1);
        bottom = r.y + r.height;
    }
    jgraphics_set_source_jrgba(g, object.maindisplaysubdivisionlinecolor);
    jgraphics_line_draw_fast(g, {0, bottom}, {view.width, bottom}, 1);
}

void draw_grid(const Prseq& object, Graphics& g, const EventView& view) {
    constexpr double faint = 0.5;
    Rgba part = object.maindisplaysubdivisionlinecolor;
    part.alpha *= faint;
    for (const GridLine& line : build_grid(object, view)) {
        jgraphics_set_source_jrgba(g, line.main   ? object.maindisplaymaindivisionlinecolor
                                      : line.part ? part
                                                  : object.maindisplaysubdivisionlinecolor);
        jgraphics_line_draw_fast(g, {line.x, 0}, {line.x, view.height}, grid_line_width);
    }
}

}  // namespace

void TQ_Prseq_Maindisplay_Draw(const Prseq& object, Graphics& g) {
    const EventView view(object, g.ratio());
    if (object.notelanes) {
        draw_note_lanes(object, g, view);
    } else {
        jgraphics_set_source_jrgba(g, object.maindisplaywhitekeycolor);
        jgraphics_rectangle_fill_fast(g, {0, 0, view.width, view.height});
    }
    draw_grid(object, g, view);
}

LayerView maindisplay_view(const Prseq& object, double ratio) {
    const EventView view(object, ratio);
    LayerView layer{view.pixels_per_ms, view.rowheight, view.horizontalscroll, view.verticalscroll, {}};
    if (object.notelanes) layer.standing.push_back({0, 0, 1, view.height});  // where the lanes begin
    if (object.showbpfs) layer.standing.push_back(bpf_label_place(object));
    return layer;
}

void draw_maindisplay(const Prseq& object, Graphics& g) {
    TQ_Prseq_Maindisplay_Draw(object, g);
    TQ_Prseq_Tracks_DrawEventsOnAllTracks(object, g);
    draw_edited_event(object, g);
    if (object.showbpfs) TQ_Prseq_Tracks_DrawBpfLabel(object, g);
}

}  // namespace tq
