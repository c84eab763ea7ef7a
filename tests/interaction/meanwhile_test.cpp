// What happens in the middle of a drag, in every mode and part: the document stays whole, and what has ended
// the drag is the last word.
#include "interaction/hand.h"

namespace tq::test {
namespace {

struct Drag {
    const char* name;
    const char* before;  ///< messages
    double ms, pitch;    ///< of the press
    const char* held;
    bool edits;  ///< it is undoable, and so ended by any edit
};
constexpr Drag drags[] = {{"move", "", 1500, 60, "", true},
                          {"move several", ".key 97", 1500, 60, "", true},
                          {"copy", "", 1500, 60, " option", true},
                          {"resize the start", "", 1010, 60, "", true},
                          {"resize the end", "", 1990, 60, "", true},
                          {"mark", "", 2500, 70, "", false},
                          {"insert", "mouse_mode insert", 4500, 70, "", true},
                          {"zoom", "mouse_mode zoom", 2500, 70, "", false},
                          {"slice", "mouse_mode slice", 1500, 60, "", false},
                          {"glue", "mouse_mode glue", 1500, 60, "", false},
                          {"draw a curve", ".key 97\nmouse_mode edit_bpf", 1500, 60, "", true},
                          {"mark points", "mouse_mode select_bpf", 1500, 60, "", false},
                          {"range of a buffer", "mouse_mode buffer", 1500, 60, "", true},
                          {"paint values", "parameterdisplay 1", 1000, -1000, "", true},
                          {"position", "", 3000, 1000, "", false}};

/// Those of the first group are edits.
constexpr const char* edits[] = {"undo",
                                 "undoredo -1",
                                 "event id 1 start 7000\n.wait 100",
                                 ".key 97\n.key -7",
                                 "track_delete 0",
                                 "track_add",
                                 "event start 8000 <note> 65 90 </note>\n.wait 100",
                                 "track_parameter_add P 0 1 0 0"};
constexpr const char* others[] = {
    "undoredo_clear",    "int 1\n.wait 300", "zoom_hor 0.5",        "scroll_vert 0.6",
    "track_visible 0 0", ".buffer sound",    ".size 700 500",       "read nothing.json",
    "mouse_mode slice",  "zoom_out_all",     "new_track_color 1",   "maxtime 50000",
    ".focus out",        "track_active 1",   ".mouse leave 0 0",    ".wait 3000",
    ".command new",      ".paint",           ".mouse move 500 300", ".mouse down 600 300 right"};

struct Held : Hand {
    void TestBody() override {}

    /// Some way of the drag, and back again.
    void go_on() {
        mouse("drag", {from.x + 40, from.y - 20});
        mouse("drag", {from.x + 1500, from.y + 700});
        mouse("drag", {from.x - 30, from.y + 10});
    }

    void start(const Drag& drag) {
        make_sound();
        say("track_add\ntrack_add\ntrack_active 0");
        add(1000, 1000, 60, "<buffer> sound </buffer>");
        add(3000, 1000, 64);
        say(drag.before);
        from = at(drag.ms, drag.pitch);
        if (drag.pitch < 0) from.y = box().layout[Part::ParameterDisplay].y + 20;
        if (drag.pitch > 500) from.y = box().layout[Part::TimeDisplay].y + 3;
        mouse(std::string("down") + drag.held, from);
        mouse(std::string("drag") + drag.held, {from.x + 25, from.y + 3});
    }

    void expect_whole(const char* what) {
        EXPECT_TRUE(holds_together(box())) << what;
        const std::string now = document_of(script.session());
        const std::string slot = std::to_string(box().history.cursor);
        say("undoredo -1\nundoredo " + slot);
        EXPECT_TRUE(same_lines(lines_of(document_of(script.session())), lines_of(now))) << what;
    }

    Point from;
};

TEST(Meanwhile, AnEditEndsWhatEdits) {
    for (const Drag& drag : drags)
        for (const char* edit : edits) {
            SCOPED_TRACE(std::string(drag.name) + ": " + edit);
            Held run;
            run.start(drag);
            run.say(edit);
            const std::string now = document_of(run.script.session());
            run.go_on();
            if (drag.edits) {
                EXPECT_EQ(document_of(run.script.session()), now);
            }
            run.release();
            run.expect_whole("after the release");
        }
}

TEST(Meanwhile, NothingElseBreaksIt) {
    for (const Drag& drag : drags)
        for (const char* other : others) {
            SCOPED_TRACE(std::string(drag.name) + ": " + other);
            Held run;
            run.start(drag);
            run.say(other);
            run.go_on();
            run.say(".paint");
            run.release();
            run.say("mouse_mode select\nint 0");
            run.expect_whole("after the release");
        }
}

}  // namespace
}  // namespace tq::test
