#include "hand.h"

#include <cstdlib>
#include <string_view>

#include "app/patch/paint_offscreen.h"
#include "documents.h"
#include "host/modifiers.h"
#include "instance/change.h"
#include "interaction/mouse.h"
#include "interaction/mouse_modes.h"
#include "model/bpf_editor.h"
#include "table.h"
#include "view/maindisplay.h"

namespace bench {

using namespace tq;

namespace {

constexpr double step = 10;  // ms from an event to the next

/// A million events in view, 1600 x 900.
struct Hand {
    Hand() {
        jbox_set_size(box, {1600, 900});
        session->send("zoom_animation 0");
        session->send("zoom_out_all");
        painter.paint(box);
    }
    Point center() const {
        const Rect& rect = box.maindisplay.rect;
        return {rect.x + rect.width / 2, rect.y + rect.height / 2};
    }
    std::unique_ptr<Session> session = document(1000000, 8, step);
    Prseq& box = session->box();
    OffscreenPainter painter;
};

/// The selected events of the active track, as many as asked for, are grabbed where one of them is.
void drag_row(Hand& hand) {
    constexpr size_t selected = 10000;
    Prseq& box = hand.box;
    EventList& events = box.tracks[static_cast<size_t>(box.activetrack)]->events;
    const size_t first = events.size() / 2 - selected / 2;
    for (size_t i = first; i < first + selected; ++i) events.select(*events.at(i), true);
    const Event& grabbed = *events.at(first + selected / 2);
    const Rect rect = TQ_Prseq_Events_Rect(box, grabbed);
    const Rect& display = box.maindisplay.rect;
    const Point press{display.x + rect.x + rect.width / 2,
                      display.y + rect.y + rect.height / 2 - box.maindisplay.verticalscroll};
    const auto move = [&](double by) {
        prseq_mousedrag(box, press.x + by, press.y + by, modifier_left_button);
    };
    prseq_mousedown(box, press.x, press.y, modifier_left_button);
    double best = 1e300, worst = 0;
    for (int i = 0; i < 20; ++i) {
        const double ms = 1e3 * cpu_of([&] {
                              move(i % 2 ? 5 : 40);
                              hand.painter.paint(box);
                          });
        best = std::min(best, ms);
        worst = std::max(worst, ms);
    }
    prseq_mouseup(box, press.x, press.y, modifier_left_button);
    row("a drag step of 10 k selected, painted, of 1 M in view", best, "ms", {"at most", 33});
    row("  the slowest of 20", worst, "ms", {"at most", 33});
}

/// The event in the middle of the view is edited, and has a curve of this many points.
void give_curve(Hand& hand, size_t points) {
    Prseq& box = hand.box;
    EventList& events = box.tracks[static_cast<size_t>(box.activetrack)]->events;
    Event& event = *events.at(events.size() / 2);
    Atoms atoms{gensym("id"), event.id, gensym("duration"), 100000L, gensym("<bpf>"), gensym("Pitch")};
    for (size_t i = 0; i < points; ++i)
        for (double number : {100000. * static_cast<double>(i) / static_cast<double>(points), 0.})
            atoms.push_back(number);
    atoms.push_back(gensym("</bpf>"));
    hand.session->send(gensym("event"), atoms);
    events.deselect_all();
    events.select(event, true);
    prseq_mousemode(box, gensym("edit_bpf"));
    if (edited_bpf(box).bpf->points.size() < points) std::abort();
}

/// With the event inspector open, whose table shows the points.
void curve_row(Hand& hand, size_t points) {
    give_curve(hand, points);
    hand.session->send("event_inspector_open");
    const std::string field = "eventEd_bpfeditor";
    double best = 1e300;
    for (int i = 0; i < 10; ++i) {
        const FieldCall call{field, "cellchanged", {static_cast<long>(points / 2), 1L, 60. + i}};
        best = std::min(best, cpu_of([&] { hand.session->call(call); }));
    }
    hand.session->send("event_inspector_close");
    row("change a point of " + count_name(points) + " in the inspector", best * 1e3, "ms", {"at most", 33});
}

void hover_rows(Hand& hand) {
    Prseq& box = hand.box;
    give_curve(hand, 10000);
    for (const MouseModeRow& mode : mouse_modes()) {
        prseq_mousemode(box, gensym(mode.name));
        const Point at = hand.center();
        constexpr int moves = 2000;
        const double seconds = cpu_of([&] {
            for (int i = 0; i < moves; ++i) prseq_mousemove(box, at.x + i % 300, at.y + i % 200, 0);
        });
        row(std::string("a hover of 1 M in view, mode ") + mode.name, seconds * 1e3 / moves, "ms",
            {"at most", 0.2});
    }
}

/// A session with the track inspector open.
struct TypeTables {
    TypeTables() { session->send("track_inspector_open"); }
    void change(const char* field, const char* what, const Atoms& atoms) {
        session->call(FieldCall{field, what, atoms});
    }
    /// CPU ms of a change of a field, the best of some.
    double ms_of(const std::function<void(int)>& before, const std::function<void()>& work) {
        double best = 1e300;
        for (int i = 0; i < 5; ++i) {
            before(i);
            best = std::min(best, cpu_of(work));
        }
        return best * 1e3;
    }
    std::unique_ptr<Session> session = document(events, 1, step);
    static constexpr size_t events = 100000;
};

void type_rows() {
    TypeTables tables;
    constexpr double ns_a_ms = 1e6;
    const auto a_row = [&](const char* what, double ms) {
        row(what, ms * ns_a_ms / TypeTables::events, "ns/event", {"at most", 100});
    };
    for (const char* field : {"trackbpfs", "trackparams"}) {
        const bool curves = std::string_view(field) == "trackbpfs";
        const Atoms values{gensym("Gain"), 0., 1., 0.5, 0L};
        const long index = curves ? 1 : 0;
        const auto undo = [&](int i) {
            if (i > 0) tables.session->send("undo");
        };
        a_row(curves ? "add a curve type to 100 k events" : "add a parameter type to 100 k events",
              tables.ms_of(undo, [&] { tables.change(field, "rowadded", values); }));
        row(curves ? "change a curve type of 100 k events" : "change a parameter type of 100 k events",
            tables.ms_of(
                [&](int i) {
                    tables.change(field, "cellchanged", {index, 2L, 9. + i});
                },
                [&] {
                    tables.change(field, "cell_mouseup", {index, 2L});
                }),
            "ms", {"at most", 1});
        const Track& track = *tables.session->box().tracks[0];
        if ((curves ? track.bpftypes[1]->maximum : track.parametertypes[0]->maximum) != 13) std::abort();
        a_row(curves ? "delete a curve type of 100 k events" : "delete a parameter type of 100 k events",
              tables.ms_of(undo, [&] { tables.change(field, "rowdeleted", {index}); }));
    }
}

}  // namespace

void hand_rows() {
    type_rows();
    Hand hand;
    drag_row(hand);
    hover_rows(hand);
    for (size_t points : {1000UL, 100000UL}) curve_row(hand, points);
}

}  // namespace bench
