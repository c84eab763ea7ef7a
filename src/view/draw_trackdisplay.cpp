#include "view/draw_trackdisplay.h"

#include "host/text.h"
#include "instance/prseq.h"
#include "view/draw_scrollbar.h"
#include "view/gradient.h"
#include "view/pict_button.h"
#include "view/trackdisplay.h"

namespace tq {

namespace {

constexpr Rgba cell_frame{0.6, 0.6, 0.6, 0.1}, header_color{0.8, 0.83, 0.87, 1}, dark{0.3, 0.3, 0.3, 1};
constexpr double name_size = 12, title_size = 9, name_margin = 5;

Rect cell(const Rect& row, long column) {
    const TrackColumn& c = track_columns[static_cast<size_t>(column)];
    return {c.x, row.y, c.width, row.height};
}

void draw_name(Graphics& g, const Track& track, const Rect& row, bool active) {
    jtextlayout_draw(g, {.text = track.name,
                         .font = jfont_create("Geneva", name_size),
                         .box = {row.x + name_margin, row.y, row.width - name_margin, row.height},
                         .vertical = VerticalJustification::Centered,
                         .ellipsis = true,
                         .color = active ? grey(0) : grey(0.6)});
}

/// The eye is open while the track is visible, the speaker is crossed out while it is muted.
void draw_switches(Graphics& g, const Track& track, const Rect& row) {
    static const PictButton eye =
        TQ_Prseq_Graphics_CreatePictButton(gensym("eye_closed.png"), gensym("eye_opened.png"), {}, {});
    static const PictButton speaker =
        TQ_Prseq_Graphics_CreatePictButton(gensym("speaker_mute.png"), gensym("speaker.png"), {}, {});
    TQ_Prseq_Graphics_DrawPictButton(g, eye, cell(row, TrackShowColumn), track.visible, true);
    TQ_Prseq_Graphics_DrawPictButton(g, speaker, cell(row, TrackMuteColumn), !track.mute, true);
}

void draw_row(const Prseq& object, Graphics& g, const Track& track, const Rect& row) {
    const bool active = track.index == object.activetrack;
    jgraphics_set_source_jrgba(g, active ? track.color : track.inactivecolor);
    for (long column : {TrackNameColumn, TrackShowColumn, TrackMuteColumn})
        jgraphics_rectangle_fill_fast(g, cell(row, column));
    jgraphics_set_source_jrgba(g, cell_frame);
    jgraphics_rectangle_draw_fast(g, row, 1);
    draw_name(g, track, row, active);
    draw_switches(g, track, row);
}

void draw_header(Graphics& g, const Rect& header) {
    jgraphics_set_source_jrgba(g, header_color);
    jgraphics_rectangle_fill_fast(g, header);
    for (const TrackColumn& column : track_columns)
        jtextlayout_draw(g, {.text = column.title,
                             .font = jfont_create("Geneva", title_size),
                             .box = {column.x, header.y, column.width, header.height},
                             .horizontal = HorizontalJustification::Centered,
                             .vertical = VerticalJustification::Centered,
                             .color = dark});
}

}  // namespace

void TQ_Prseq_Trackdisplay_Draw(const Prseq& object, Graphics& g) {
    const Rect& part = object.layout[Part::TrackDisplay];
    const TrackDisplay display = trackdisplay_of(object);
    jgraphics_set_source_jrgba(g, object.trackdisplaycolor);
    jgraphics_rectangle_fill_fast(g, {0, 0, part.width, part.height});

    jgraphics_translate(g, display.scrollbarrect.x, display.scrollbarrect.y);
    TQScrollbar_Draw(display.scrollbar, g);
    jgraphics_translate(g, -display.scrollbarrect.x, -display.scrollbarrect.y);

    const TrackRows rows = visible_track_rows(object, display);
    for (long i = rows.first; i < rows.last; ++i)
        draw_row(object, g, *object.tracks[static_cast<size_t>(i)], track_row(display, i));
    draw_header(g, display.header);
    jgraphics_set_source_jrgba(g, dark);
    jgraphics_rectangle_fill_fast(g, {part.width - 1, 0, 1, part.height});
}

}  // namespace tq
