// A hand at the box: 1000 pixels for the first 10 s, rows of some pixels, middle C in view.
#pragma once

#include <string>

#include "app/script_fixture.h"
#include "instance/prseq.h"
#include "model/holds_together.h"
#include "sounds.h"
#include "view/maindisplay.h"

namespace tq::test {

struct Hand : ScriptTest {
    Hand() {
        say(".size 1220 600\nzoom_animation 0\nzoom_hor 0\nzoom_vert 0.02\nscroll_vert 0.5\nsnaptime 0\n"
            "snappitch 0");
    }
    ~Hand() override { EXPECT_TRUE(holds_together(box())); }

    /// A place in a row at a time, in the box.
    Point at(double ms, double pitch) {
        const MainDisplay& md = box().maindisplay;
        const Point p =
            TQ_Prseq_Maindisplay_CalculateDisplayPositionFromStartAndPitch(box(), md, ms, pitch + 0.25);
        return {md.rect.x + p.x, md.rect.y + p.y - md.verticalscroll};
    }
    static std::string place(Point p) { return std::to_string(p.x) + " " + std::to_string(p.y); }
    /// "down", "drag left shift" …: the call, and what is held.
    Lines mouse(const std::string& how, Point p) {
        const size_t blank = how.find(' ');
        const std::string held = blank == how.npos ? "" : how.substr(blank);
        last_ = p;
        return say(".mouse " + how.substr(0, blank) + " " + place(p) + held);
    }
    Lines mouse(const std::string& how, double ms, double pitch) { return mouse(how, at(ms, pitch)); }
    Lines release(const std::string& held = "") { return mouse("up" + held, last_); }
    void click(Point p, const std::string& held = "") {
        mouse("down" + held, p);
        release(held);
    }
    void click(double ms, double pitch, const std::string& held = "") { click(at(ms, pitch), held); }
    /// A press at one place, a drag to another, the release there.
    void drag(Point from, Point to, const std::string& held = "") {
        mouse("down" + held, from);
        mouse("drag" + held, to);
        release(held);
    }
    void add(double start, double duration, double pitch, const std::string& more = "") {
        say("event start " + std::to_string(static_cast<long>(start)) + " duration " +
            std::to_string(static_cast<long>(duration)) + " <note> " + std::to_string(pitch) +
            " 90 </note> " + more + "\n.wait 100");
    }

    /// The buffer "sound", of 4 s.
    void make_sound() {
        write_silence(folder.file("sound.wav"), 4000);
        say(".buffer sound \"" + folder.file("sound.wav") + "\"");
    }

    std::string tip() { return say(".show tiptool").at(0); }
    std::string cursor() { return say(".show cursor").at(0); }
    /// The events of the active track: "START+DURATION@PITCH", selected ones with a "*", in whole numbers.
    std::string events() {
        std::string text;
        if (const TrackRef track =
                box().tracks.empty() ? nullptr : box().tracks[static_cast<size_t>(box().activetrack)])
            track->events.for_each([&](const Event& e) {
                text += (text.empty() ? "" : " ") + whole(e.start) + "+" + whole(e.duration) + "@" +
                        whole(e.pitch) + (e.selected ? "*" : "");
            });
        return text;
    }
    /// The names in the history, the last one that is applied in brackets.
    std::string history() {
        std::string text;
        for (size_t i = 0; i < box().history.items.size(); ++i) {
            const std::string name = box().history.items[i]->name();
            text += (text.empty() ? "" : ", ") +
                    (static_cast<long>(i) == box().history.cursor ? "[" + name + "]" : name);
        }
        return text;
    }
    /// Undoes and redoes everything: the document comes back.
    testing::AssertionResult comes_back() {
        const std::string now = document_of(script.session());
        const long slot = box().history.cursor;
        say("undoredo -1\nundoredo " + std::to_string(slot));
        if (document_of(script.session()) == now) return testing::AssertionSuccess();
        return testing::AssertionFailure() << document_of(script.session()) << "\ninstead of\n" << now;
    }
    static std::string whole(double value) { return std::to_string(std::lround(value)); }

 private:
    Point last_;
};

}  // namespace tq::test
