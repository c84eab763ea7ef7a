#include "painting.h"

#include "app/patch/paint_offscreen.h"
#include "documents.h"
#include "host/graphics.h"
#include "host/image.h"
#include "instance/change.h"
#include "table.h"
#include "view/zoom.h"
#include "view/zoom_commands.h"

namespace bench {

using namespace tq;

namespace {

constexpr double width = 1600, height = 900, step = 10;  // of the box in pixels; ms from an event to the next

struct Painted {
    Painted(size_t events, size_t tracks) : session(document(events, tracks, step)) {
        jbox_set_size(box, {width, height});
        box.zoom_animation = false;
        prseq_zoom_out_all(box);
        painter.paint(box);
    }
    /// All rows, and about so many events of those that there are.
    void show_events(size_t count) {
        const double visible = static_cast<double>(count) * step;
        const TQScrollbar& bar = box.horscrollbar;
        const double zoom = bar.minimumzoom * box.timelinelength / visible;
        prseq_horzoom(box, (zoom - bar.minimumzoom) / (bar.maximumzoom - bar.minimumzoom));
        prseq_horscroll(box, 0.5);
        painter.paint(box);
    }
    /// CPU ms of a frame, the best of many; `change` is what happens before each.
    template <typename Step>
    double ms_a_frame(Step change, int frames = 30) {
        double best = 1e300;
        for (int frame = 0; frame < frames; ++frame) {
            change(frame);
            best = std::min(best, cpu_of([&] { painter.paint(box); }));
        }
        return best * 1e3;
    }
    double ms_anew() {
        return ms_a_frame([&](int) { prseq_show(box, Change::MainDisplay); });
    }

    std::unique_ptr<Session> session;
    Prseq& box = session->box();
    OffscreenPainter painter;
};

/// CPU ms to fill as many pixels once.
double ms_to_fill() {
    SurfaceRef surface = jgraphics_image_surface_create(width, height);
    Graphics g(*surface);
    jgraphics_set_source_rgba(g, 0.5, 0.5, 0.5, 1);
    return best_cpu_of(30, [&] { jgraphics_rectangle_fill_fast(g, {0, 0, width, height}); }) * 1e3;
}

void row_beside_fill(const std::string& name, double ms) { row(name, ms, "ms", {"fill once", ms_to_fill()}); }

std::string of(size_t events) { return ", of " + count_name(events); }

void rows_of_a_part(size_t visible) {
    const std::string in_view = count_name(visible) + " in view";
    for (size_t events : {visible, size_t{1000000}}) {
        Painted painted(events, 8);
        painted.show_events(visible);
        row_beside_fill("paint, " + in_view + of(events), painted.ms_anew());
        if (events == visible) continue;
        const TQScrollbar& bar = painted.box.horscrollbar;
        const double step = 13 / (bar.totalpagesize - bar.selectionpagesize),
                     zoom = painted.box.horizontalzoom;
        row_beside_fill("scroll by 13 pixels, " + in_view + of(events), painted.ms_a_frame([&](int frame) {
            prseq_horscroll(painted.box, 0.5 + (frame + 1) * step);
        }));
        row_beside_fill("zoom, " + in_view + of(events), painted.ms_a_frame([&](int frame) {
            prseq_horzoom(painted.box, zoom * (1 + (frame + 1) * 1e-3));
        }));
    }
}

void rows_of_all(size_t events) {
    for (size_t tracks : {size_t{8}, size_t{1}}) {
        Painted painted(events, tracks);
        const std::string on = tracks == 1 ? " on 1 track" : " on 8 tracks";
        row_beside_fill("paint, all of " + count_name(events) + on, painted.ms_anew());
    }
}

/// What is painted beside the events, or of those that are selected, with a million in view.
void rows_of_other_views() {
    Painted painted(1000000, 8);
    Prseq& box = painted.box;
    EventList& events = box.tracks[static_cast<size_t>(box.activetrack)]->events;
    row_beside_fill("paint after selecting 10 k, all of 1 M",
                    painted.ms_a_frame(
                        [&](int frame) {
                            events.deselect_all();
                            for (size_t i = static_cast<size_t>(frame) % 2; i < 20000; i += 2)
                                events.select(*events.at(i), true);
                            prseq_show(box, Change::Events);
                        },
                        5));
    painted.session->send("parameterdisplay 1");
    painted.painter.paint(box);
    row_beside_fill("the parameter display, all of 1 M",
                    painted.ms_a_frame([&](int) { prseq_show(box, Change::ParameterDisplay); }));
}

/// A million events, half of them in view, while the line cursor goes through them and the view stays.
void playing_row() {
    Painted painted(1000000, 8);
    painted.show_events(500000);
    Scheduler& scheduler = painted.session->host().scheduler;
    painted.session->send("position 5000000");
    painted.session->send("int 1");
    const double ms = painted.ms_a_frame([&](int) { scheduler.run_until(scheduler.now() + 50); });
    row_beside_fill("a frame of playing without follow, 500 k in view", ms);
}

}  // namespace

void painting_rows() {
    for (size_t visible : {1000UL, 10000UL, 500000UL}) rows_of_a_part(visible);
    for (size_t events : {100000UL, 1000000UL, 10000000UL}) rows_of_all(events);
    rows_of_other_views();
    playing_row();
}

}  // namespace bench
