#include "editing.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>

#include "documents.h"
#include "edits/clipboard.h"
#include "edits/event_edits.h"
#include "history/edit.h"
#include "host/modifiers.h"
#include "interaction/commands.h"
#include "interaction/mouse.h"
#include "interaction/move_gesture.h"
#include "interaction/pointer.h"
#include "model/events.h"
#include "model/selection.h"
#include "model/tracks.h"
#include "table.h"

namespace bench {

using namespace tq;

namespace {

/// A document on one track, and what is done to it.
class Editing {
 public:
    explicit Editing(size_t events) : session_(document(events, 1, 10)), box_(session_->box()) {
        session_->send("scroll_vert 0.5");
    }

    void select_all() {
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(box_, 0);
        TQ_Prseq_Tracks_SelectAllEvents(box_, 0);
        TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(box_, 0);
    }
    /// Chooses the event that is selected or modified next.
    void choose() { target_ = box_.tracks[0]->events.at(random() % count()); }
    void select_one() {
        TQ_Prseq_Tracks_DeselectAllEventsInTrack(box_, 0);
        TQ_Prseq_Tracks_SelectEvent2(box_, *target_);
        TQ_Prseq_Tracks_MakeLinkedListFromAllSelectedEvents(box_, 0);
    }
    void press() {
        end_what_is_under_way(box_);
        box_.gesture = move_gesture(box_, box_.selection.front(), pointer_at(box_, 300, 300, 0));
        distance_ = 0;
    }
    /// One step of a drag.
    void drag() {
        distance_ = distance_ > 20 ? 1 : distance_ + 1;
        prseq_mousedrag(box_, 300 + distance_, 300, modifier_left_button);
    }
    void release() { prseq_mouseup(box_, 300, 300, modifier_left_button); }
    void move() { press(), drag(), release(); }
    void zoom_out() {
        session_->send("zoom_animation 0");
        session_->send("zoom_out_all");
    }
    /// Over all that is seen; the upper left corner is empty.
    void drag_marquee() {
        const Rect& rect = box_.maindisplay.rect;
        prseq_mousedown(box_, rect.x, rect.y + 1, modifier_left_button);
        prseq_mousedrag(box_, rect.x + rect.width + 1, rect.y + rect.height, modifier_left_button);
        release();
        if (box_.selection.size() != count()) std::abort();
    }
    void run(Command command) { run_command(box_, command); }
    void say(const char* message) { session_->send(message); }
    void delete_selected() { prseq_deleteselectedevents(box_); }
    void undo() { session_->send(undo_, {}); }
    void redo() { session_->send(redo_, {}); }
    void cut() { TQ_Prseq_Clipboard_CutSelection(box_); }
    void paste() { TQ_Prseq_Clipboard_PasteSelection(box_); }
    /// An "event" message that changes an event, and the end of its burst.
    void modify() {
        session_->send(event_, Atoms{id_, target_->id, start_, static_cast<long>(random() % length())});
        session_->host().scheduler.run_until(session_->host().scheduler.now() + 100);
    }
    size_t count() const { return box_.tracks[0]->events.size(); }
    void loop_half() { say(("cyclerange 0 " + std::to_string(length() / 2)).c_str()); }
    void forget() { session_->send("undoredo_clear"); }

 private:
    size_t random() { return random_ = random_ * 6364136223846793005u + 1442695040888963407u, random_ >> 33; }
    size_t length() const { return static_cast<size_t>(box_.timelinelength); }

    std::unique_ptr<Session> session_;
    Prseq& box_;
    EventRef target_;
    double distance_ = 0;
    size_t random_ = 1;
    const Symbol event_ = gensym("event"), id_ = gensym("id"), start_ = gensym("start"),
                 undo_ = gensym("undo"), redo_ = gensym("redo");
};

/// An operation on all events, ns an event; or on one event among them, ns.
struct Operation {
    const char* name;
    bool whole;
    std::function<void(Editing&)> prepare, work, clean;
};

void nothing(Editing&) {}

const Operation operations[] = {
    {"select all", true, nothing, [](Editing& e) { e.select_all(); }, nothing},
    {"move the whole selection by one step", true, [](Editing& e) { e.select_all(), e.press(); },
     [](Editing& e) { e.drag(); }, [](Editing& e) { e.release(), e.forget(); }},
    {"press, move and release the whole selection", true, [](Editing& e) { e.select_all(); },
     [](Editing& e) { e.move(); }, [](Editing& e) { e.forget(); }},
    {"undo moving all", true, [](Editing& e) { e.select_all(), e.move(); }, [](Editing& e) { e.undo(); },
     [](Editing& e) { e.forget(); }},
    {"transpose all by a key", true, [](Editing& e) { e.select_all(); },
     [](Editing& e) { e.run(Command::TransposeUp); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"lengthen all by a key", true, [](Editing& e) { e.select_all(); },
     [](Editing& e) { e.run(Command::Lengthen); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"duplicate all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.run(Command::Duplicate); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"delete all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.delete_selected(); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"undo deleting all", true, [](Editing& e) { e.select_all(), e.delete_selected(); },
     [](Editing& e) { e.undo(); }, [](Editing& e) { e.forget(); }},
    {"cut all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.cut(); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"paste all", true, [](Editing& e) { e.select_all(), e.cut(); }, [](Editing& e) { e.paste(); },
     [](Editing& e) { e.forget(); }},
    {"quantise all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.say("quantise 7"); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"undo quantising all", true, [](Editing& e) { e.select_all(), e.say("quantise 7"); },
     [](Editing& e) { e.undo(); }, [](Editing& e) { e.forget(); }},
    {"legato of all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.say("legato"); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"reverse all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.say("reverse"); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"humanise all", true, [](Editing& e) { e.select_all(); }, [](Editing& e) { e.say("humanise 30 10 1"); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"fade all", true, [](Editing& e) { e.select_all(); },
     [](Editing& e) { e.say("curve_fade Expression 1 0"); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"scale all velocities", true, [](Editing& e) { e.select_all(); },
     [](Editing& e) { e.say("velocity_scale 0.9"); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"join all that touch", true, [](Editing& e) { e.select_all(), e.say("quantise 480 both"); },
     [](Editing& e) { e.say("join"); }, [](Editing& e) { e.undo(), e.undo(), e.forget(); }},
    {"change the song's tempo", true, nothing, [](Editing& e) { e.say("stretch_to_tempo 100"); },
     [](Editing& e) { e.undo(), e.forget(); }},
    {"drag the song's tempo by one step", true, [](Editing& e) { e.say("stretch_to_tempo 100"); },
     [](Editing& e) { e.say("stretch_to_tempo 101"); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"raise a curve of the track", true, [](Editing& e) { e.say("track_level Volume 80"), e.forget(); },
     [](Editing& e) { e.say("track_level Volume 70"); },
     [](Editing& e) { e.undo(), e.forget(), e.say("track_level Volume 80"), e.forget(); }},
    {"swap the halves of the song", true, [](Editing& e) { e.loop_half(); },
     [](Editing& e) { e.say("loop_swap"); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"repeat the half of the song", true, [](Editing& e) { e.loop_half(); },
     [](Editing& e) { e.say("loop_repeat"); }, [](Editing& e) { e.undo(), e.forget(); }},
    {"zoom to the song", true, nothing, [](Editing& e) { e.run(Command::ZoomToSong); }, nothing},
    {"select by pitch", true, nothing, [](Editing& e) { e.say("select_where pitch 0 70"); }, nothing},
    {"invert the selection", true, nothing, [](Editing& e) { e.say("select_invert"); }, nothing},
    {"select one event", false, [](Editing& e) { e.choose(); }, [](Editing& e) { e.select_one(); }, nothing},
    {"press and drag one event by one step", false, [](Editing& e) { e.choose(), e.select_one(); },
     [](Editing& e) { e.move(); }, [](Editing& e) { e.forget(); }},
    {"delete one event and undo", false, [](Editing& e) { e.choose(), e.select_one(); },
     [](Editing& e) { e.delete_selected(), e.undo(); }, [](Editing& e) { e.forget(); }},
    {"cut and paste one event", false, [](Editing& e) { e.choose(), e.select_one(); },
     [](Editing& e) { e.cut(), e.paste(); }, [](Editing& e) { e.forget(); }},
    {"modify one event by identifier", false, [](Editing& e) { e.choose(); }, [](Editing& e) { e.modify(); },
     [](Editing& e) { e.forget(); }},
    {"undo and redo of one event", false, [](Editing& e) { e.choose(), e.modify(); },
     [](Editing& e) { e.undo(), e.redo(); }, [](Editing& e) { e.forget(); }},
    {"zoom out and drag a marquee over all", true, [](Editing& e) { e.zoom_out(); },
     [](Editing& e) { e.drag_marquee(); }, nothing},
};

/// ns of one run of the work, the best of some for all events, the mean of many for one.
double ns_of(const Operation& operation, Editing& editing) {
    constexpr int single_runs = 2000;
    int runs = operation.whole ? (editing.count() > 200000 ? 3 : 10) : single_runs;
    double best = 1e300, sum = 0;
    for (int i = -1; i < runs; ++i) {
        operation.prepare(editing);
        double ns = cpu_of([&] { operation.work(editing); }) * 1e9;
        operation.clean(editing);
        if (i < 0) continue;  // the first lets go of what the operation before it has left
        best = std::min(best, ns);
        sum += ns;
    }
    return operation.whole ? best / static_cast<double>(editing.count()) : sum / runs;
}

/// ns an undoable edit when the history holds so many: each reports the whole list.
double ns_with_history(size_t items) {
    Session session;
    const Symbol active = gensym("track_active");
    session.send("track_add");
    session.send("track_add");
    auto edit = [&](size_t i) { session.send(active, Atoms{static_cast<long>(i % 2)}); };
    for (size_t i = 0; i < items; ++i) edit(i);
    constexpr size_t measured = 200;
    return cpu_of([&] {
               for (size_t i = 0; i < measured; ++i) edit(i);
           }) *
           1e9 / measured;
}

}  // namespace

void editing_rows() {
    row("an undoable edit, 100 in the history", ns_with_history(100), "ns");
    row("an undoable edit, 10 k in the history", ns_with_history(10000), "ns");

    constexpr size_t sizes[] = {1000, 100000, 1000000};
    std::vector<std::unique_ptr<Editing>> documents;
    for (size_t size : sizes) documents.push_back(std::make_unique<Editing>(size));
    for (const Operation& operation : operations) {
        double small = ns_of(operation, *documents[0]);
        for (size_t i = 0; i < std::size(sizes); ++i) {
            double ns = i == 0 ? small : ns_of(operation, *documents[i]);
            row(std::string(operation.name) + ", of " + count_name(sizes[i]), ns,
                operation.whole ? "ns/event" : "ns",
                operation.whole ? Yardstick{"at most", 300} : Yardstick{"of 1 k", small});
        }
    }
}

}  // namespace bench
