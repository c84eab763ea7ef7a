#include "scaling.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "app/patch/paint_offscreen.h"
#include "documents.h"
#include "model/tracks.h"
#include "table.h"

namespace bench {

using namespace tq;

namespace {

/// us a track of a MIDI file with one note a track.
double import_tracks(size_t count) {
    const std::string path = (std::filesystem::temp_directory_path() / "sorvo-bench-tracks.mid").string();
    std::ofstream(path, std::ios::binary) << midi_file(count, count);
    const double seconds = best_cpu_of(3, [&] {
        Session session;
        if (!session.open(path)) std::abort();
    });
    std::filesystem::remove(path);
    return seconds / static_cast<double>(count) * 1e6;
}

/// ns a point of a curve that one message brings.
double curve_of_points(size_t count) {
    Atoms message{gensym("duration"), 100000L, gensym("<bpf>"), gensym("Pitch")};
    for (size_t i = 0; i < count; ++i) {
        message.push_back(100000. * static_cast<double>(i) / static_cast<double>(count));
        message.push_back(1.);
    }
    message.push_back(gensym("</bpf>"));
    return best_cpu_of(3, [&] { Session().send(gensym("event"), message); }) / static_cast<double>(count) *
           1e9;
}

/// ns an event that lies between an event and the next of its pitch.
double next_of_same_pitch(size_t count) {
    auto session = document(count, 1, 10);
    Prseq& box = session->box();
    session->send("event start 0 duration 1 <note> 1 1 </note>");
    session->send("event start 90000000 duration 1 <note> 1 1 </note>");
    const Track& track = *box.tracks[0];
    const Event* first = track.events.first();
    while (first->pitch != 1) first = track.events.next(*first);
    const double seconds = best_cpu_of(5, [&] {
        if (!TQ_Prseq_Tracks_FindNextEventWithSamePitchOnTrack(box, track, *first)) std::abort();
    });
    return seconds / static_cast<double>(count) * 1e9;
}

/// us a track to paint, each in colours of its own.
double paint_tracks(size_t count) {
    Session session;
    for (size_t i = 0; i < count; ++i) {
        session.send("track_add");
        session.send("track_color " + std::to_string(static_cast<double>(i) / static_cast<double>(count)));
        session.send("event start " + std::to_string(i) + " duration 500 <note> 60 100 </note>");
    }
    OffscreenPainter painter;
    painter.paint(session.box());
    const double seconds = best_cpu_of(10, [&] {
        prseq_show(session.box(), Change::MainDisplay);
        painter.paint(session.box());
    });
    return seconds / static_cast<double>(count) * 1e6;
}

struct Scaling {
    const char* name;
    const char* unit;
    size_t small, large;
    double (*cost)(size_t);
};
constexpr Scaling scalings[] = {
    {"import a track of", "us", 1000, 10000, import_tracks},
    {"a point of a curve in a message of", "ns", 100000, 1000000, curve_of_points},
    {"pass an event on the way to the same pitch, of", "ns", 100000, 1000000, next_of_same_pitch},
    {"paint a track in its own colours, of", "us", 100, 1000, paint_tracks}};

}  // namespace

void scaling_rows() {
    for (const Scaling& s : scalings) {
        const double small = s.cost(s.small);
        row(std::string(s.name) + " " + std::to_string(s.large), s.cost(s.large), s.unit,
            {"of " + std::to_string(s.small), small});
    }
}

}  // namespace bench
