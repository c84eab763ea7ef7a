// Documents for tests: one with everything in it, and any number of random ones.
#pragma once

#include <random>
#include <sstream>
#include <string>

#include "app/patch/session.h"

namespace tq::test {

/// Every key that a document can have.
inline const char* const good_document = R"({"tq.sorvo": "",
 "header": {"fileversion": 100, "title": "Song", "author": "Me", "date": "Today"},
 "tracks": [
  {"name": "Lead", "mute": 1, "solo": 1, "visible": 0, "color": 0.25, "destination": "gm:3",
   "discard_note_output": 1, "discard_default_pitch_bpf_output": 1,
   "paramtypes": [{"Name": "Cut", "Minimum": 0.0, "Maximum": 1000.0, "Steps": 5, "Default": 250.0, "ID": 7}],
   "bpftypes": [{"name": "Gain", "minvalue": -1.0, "maxvalue": 2.0, "defaultvalue": 0.5}],
   "events": [
    {"start": 500, "duration": 250, "pitch": 60.5, "velocity": 100.0, "label": "L", "message": "m 1",
     "buffer": "kick", "bufferadapt": 1, "bufferstart": 10.0, "bufferend": 90.0,
     "parameters": [{"name": "Cut", "value": 700.0}],
     "bpfs": [{"name": "Pitch", "points": [{"x": 0.0, "y": 0.0}, {"x": 0.5, "y": 2.0}, {"x": 1.0, "y": -1.0}]},
              {"name": "Gain", "points": [{"x": 0.0, "y": 0.25}, {"x": 1.0, "y": 1.0}]}]},
    {"start": 100, "duration": 5000, "pitch": 30.0, "velocity": 1.0}]},
  {"name": "Bass", "events": []}],
 "activetrack": 0, "maxtime": 20000.0,
 "meters": [{"measure": 0, "beats": 3, "notevalue": 4}, {"measure": 4, "beats": 7, "notevalue": 8}],
 "showlabels": 0, "showmessages": 1, "showbpfs": 0, "showallbpfs": 1, "showbuffers": 0, "linecursorfollow": 1,
 "timedisplaytype": 2, "verticalzoom": 0.125, "horizontalzoom": 0.25, "verticalscroll": 0.5, "horizontalscroll": 0.75,
 "cycle": {"cyclestart": 1000, "cycleend": 3000, "cycleactive": 1}})";

/// Fills a session's box by messages that a seed chooses.
class RandomDocument {
 public:
    explicit RandomDocument(unsigned seed) : random_(seed) {}

    void make(Session& session) {
        for (long tracks = below(4); tracks >= 0; --tracks) {
            send(session, "track_add ", word());
            for (long types = below(4); types > 0; --types)
                send(session, "track_bpf_add B", types, ' ', -number(), ' ', number(), ' ', number());
            for (long types = below(3); types > 0; --types)
                send(session, "track_parameter_add P", types, ' ', -number(), ' ', number(), ' ', number(),
                     ' ', below(9));
            for (long events = below(30); events > 0; --events) send(session, "event ", event());
        }
        send(session, "track_active ", below(3));
        send(session, "track_mute ", below(2));
        send(session, "track_delete ", below(5));
        send(session, "showbpfs ", below(2));
        send(session, "zoom_hor ", number() / 1000);
        send(session, "scroll_vert ", number() / 1000);
        send(session, "cyclerange ", number(), ' ', 1000 + number());
        send(session, "cycle ", below(2));
    }

 private:
    long below(long count) { return static_cast<long>(random_() % static_cast<unsigned long>(count)); }
    double number() { return static_cast<double>(below(1000001)) / 1000; }
    std::string word() {
        static const char* const words[] = {
            "a",        "\"two words\"", "\"\\\"quoted\\\" \\\\\"", "\xc3\xa4\xe2\x82\xac", "\"7\"", "\"\t\"",
            "\"\x01\"", "\"\"",          "\xe4\xff\xed\xa0\x80"};  // the last is no UTF-8
        return words[below(std::size(words))];
    }
    std::string event() {
        std::ostringstream text;
        text << "start " << (below(3) ? 10. * static_cast<double>(below(20)) : number() * 30) << " duration "
             << number() << " label " << word() << " <note> " << number() / 8 << ' ' << below(128)
             << " </note>";
        if (below(2)) text << " <message> " << word() << ' ' << number() << " </message>";
        if (below(4) == 0) text << " <buffer> kick 1 </buffer>";
        if (below(2)) text << " <parameter> P1 " << number() << " P2 -3 </parameter>";
        if (below(2)) {
            text << " <bpf> ";
            for (const char* name : {"Pitch", "B1", "B2"}) {
                text << name;
                for (long points = below(6); points > 0; --points)
                    text << ' ' << number() << ' ' << number() - 500;
                text << ' ';
            }
            text << "</bpf>";
        }
        return text.str();
    }
    template <typename... Words>
    static void send(Session& session, const Words&... words) {
        std::ostringstream text;
        (text << ... << words);
        session.send(text.str());
    }

    std::mt19937 random_;
};

}  // namespace tq::test
