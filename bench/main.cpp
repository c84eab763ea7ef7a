// Prints the table of benchmarks; arguments choose those whose name contains one of them.
#include <algorithm>
#include <boost/json.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "app/journal/journal.h"
#include "app/journal/recovery.h"
#include "app/midi/reader.h"
#include "app/patch/import.h"
#include "app/patch/paint_offscreen.h"
#include "documents.h"
#include "editing.h"
#include "file/document_messages.h"
#include "file/document_writer.h"
#include "hand.h"
#include "host/dictionary.h"
#include "host/files.h"
#include "host/graphics_runtime.h"
#include "painting.h"
#include "scaling.h"
#include "sound.h"
#include "table.h"

namespace bench {

using namespace tq;

namespace {

std::string scratch(const std::string& name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

/// CPU ns an "event" message, in a document of its own.
double ns_per_message(size_t count, bool shuffled) {
    const Symbol event = gensym("event");
    std::vector<long> starts = event_starts(count, shuffled);
    Atoms message = event_message();
    Session session;
    double seconds = cpu_of([&] {
        for (long start : starts) {
            message[start_atom] = start;
            message[pitch_atom] = 40 + start / 10 % 40;
            session.send(event, message);
        }
        session.box().tracks[0]->events.first();  // whatever waited to be put in order
    });
    return seconds / static_cast<double>(count) * 1e9;
}

void event_message_rows() {
    for (bool shuffled : {false, true}) {
        std::string order = shuffled ? "random order" : "start order";
        double small = 1e300;
        for (int i = 0; i < 20; ++i) small = std::min(small, ns_per_message(10000, shuffled));
        double large = 1e300;
        for (int i = 0; i < 4; ++i) large = std::min(large, ns_per_message(1000000, shuffled));
        row("event messages, 10 k, " + order, 1e9 / small, "/s");
        row("event messages, 1 M, " + order, 1e9 / large, "/s", {"needed", shuffled ? 200000.0 : 500000.0});
        row("ns an event message at 1 M, " + order, large, "ns", {"at 10 k", small});
    }
}

/// What the journal costs: nothing may wait for the disk.
void journal_rows() {
    constexpr size_t count = 100000;
    const std::string state = scratch("sorvo-bench-state");
    ::setenv("XDG_STATE_HOME", state.c_str(), 1);
    std::vector<std::string> lines;
    for (long start : event_starts(count, false))
        lines.push_back("event start " + std::to_string(start) + " duration 100 <note> " +
                        std::to_string(40 + start / 10 % 40) + " 100 </note>");
    std::string text;
    size_t bytes = 0;
    double slowest = 0;
    auto ns_an_edit = [&](bool journalled) {
        Session session;
        std::string fault;
        std::optional<Journal> journal;
        if (journalled) journal.emplace(session, SessionFolder::make(fault).value(), true);
        slowest = 0;
        double seconds = thread_cpu_of([&] {
            double before = wall_seconds();
            for (const std::string& line : lines) {
                session.host().scheduler.run_until(session.host().scheduler.now() + 0.125);
                session.send(line);
                const double after = wall_seconds();
                slowest = std::max(slowest, after - std::exchange(before, after));
            }
        });
        if (journalled) {
            journal->drain();
            text = *read_file(journal->folder().journal_path().string(), fault);
            bytes = text.size();
        }
        return seconds / count * 1e9;
    };
    double without = 1e300, with = 1e300, slowest_without = 1e300, slowest_with = 1e300;
    for (int i = 0; i < 5; ++i) {
        without = std::min(without, ns_an_edit(false));
        slowest_without = std::min(slowest_without, slowest);
        with = std::min(with, ns_an_edit(true));
        slowest_with = std::min(slowest_with, slowest);
    }
    row("an event message with the journal, 100 k", with, "ns", {"without", without});
    row("  the slowest of them", slowest_with * 1e6, "us", {"without", slowest_without * 1e6});
    row("  bytes of journal a message", static_cast<double>(bytes) / count, "bytes",
        {"message", static_cast<double>(lines.back().size() + 1)});
    double replayed = best_cpu_of(3, [&] {
        Session session;
        if (!replay(session, text, state).fault.empty()) std::abort();
    });
    row("  replay of all of them, CPU", replayed, "s", {"done first", without * count * 1e-9});

    const std::string path = scratch("sorvo-bench.json");
    std::string fault;
    write_file(path, TQ_Prseq_Json_MakeDictionary(document(200000, 8, 10)->box(), true), fault);
    auto open = [&](bool journalled) {
        Session session;
        std::optional<Journal> journal;
        if (journalled) journal.emplace(session, SessionFolder::make(fault).value(), true);
        return thread_cpu_of([&] { session.open(path); });
    };
    double plain = 1e300, kept = 1e300;
    for (int i = 0; i < 3; ++i) {
        plain = std::min(plain, open(false));
        kept = std::min(kept, open(true));
    }
    row("open a document of 200 k events with the journal", kept * 1e3, "ms", {"without", plain * 1e3});
    std::filesystem::remove(path);
    std::filesystem::remove_all(state);
}

/// The time of the clock on the wall: what somebody waits for.
void large_midi_row() {
    const std::string path = scratch("sorvo-bench.mid");
    std::ofstream(path, std::ios::binary) << midi_file(10000000, 8);
    const double begin = wall_seconds();
    Session session;
    if (!session.open(path)) std::abort();
    OffscreenPainter().paint(session.box());
    row("open a MIDI file of 10 M notes and paint it", wall_seconds() - begin, "s", {"at most", 4});
    std::filesystem::remove(path);
}

void midi_rows() {
    std::string path = scratch("sorvo-bench.mid");
    std::ofstream(path, std::ios::binary) << midi_file(1000000, 8);
    std::string fault;
    double bare = best_cpu_of(3, [&] {
        FileBytes bytes = read_file(path, fault);
        read_midi_file(std::as_bytes(std::span(*bytes)));
    });
    double open = best_cpu_of(3, [&] {
        Session session;
        if (!session.open(path)) std::abort();
        OffscreenPainter().paint(session.box());
    });
    row("open a MIDI file of 1 M notes and paint it, CPU", open, "s", {"bare parse", bare});
    row("  beside the best of the well-known sequencers", open, "s", {"theirs", 0.85});
    std::filesystem::remove(path);
    large_midi_row();
}

void memory_rows() {
    size_t before = heap_bytes();
    auto session = document(1000000, 8, 10);
    double bytes = static_cast<double>(heap_bytes() - before) / 1e6;
    row("memory an event with its Pitch curve, at 1 M", bytes, "bytes", {"at most", 400});
}

void document_rows() {
    std::string path = scratch("sorvo-bench.json"), fault;
    auto source = document(1000000, 8, 10);
    std::string text;
    double write = best_cpu_of(2, [&] { text = TQ_Prseq_Json_MakeDictionary(source->box(), true); });
    source.reset();
    write_file(path, text, fault);
    boost::json::value parsed;
    double bare_read = best_cpu_of(2, [&] { parsed = boost::json::parse(text); });
    std::string serialized;
    double bare_write = best_cpu_of(2, [&] { serialized = boost::json::serialize(parsed); });
    parsed = nullptr;
    double read = best_cpu_of(2, [&] {
        Session session;
        if (!session.open(path)) std::abort();
    });
    row("read a document of 1 M events, CPU", read, "s", {"library's parse", bare_read});
    row("write a document of 1 M events (to text), CPU", write, "s", {"library's serialise", bare_write});
    std::filesystem::remove(path);
}

/// CPU ns an event sent while playing 1000 events.
double ns_per_played_event(size_t events) {
    auto session = document(events, 16, 10);
    Scheduler& scheduler = session->host().scheduler;
    double from = static_cast<double>(events) * 10 / 2,
           stretch = std::min(static_cast<double>(events), 20000.) * 10 / 2;
    Itm& itm = *session->box().transport;
    itm_setticks(itm, itm_mstoticks(itm, from));
    session->send("int 1");
    double seconds = cpu_of([&] { scheduler.run_until(scheduler.now() + stretch); });
    session->send("int 0");
    return seconds / (stretch / 10) * 1e9;
}

double best_played(size_t events, int runs) {
    double best = 1e300;
    for (int i = 0; i < runs; ++i) best = std::min(best, ns_per_played_event(events));
    return best;
}

void playback_rows() {
    double small = best_played(1000, 20);
    row("play an event on 16 tracks, of 1 k", small, "ns");
    for (size_t events : {10000UL, 100000UL, 1000000UL})
        row("play an event on 16 tracks, of " + count_name(events), best_played(events, 3), "ns",
            {"of 1 k", small});
}

struct Group {
    const char* name;
    void (*run)();
};

constexpr Group groups[] = {{"messages", event_message_rows},
                            {"journal", journal_rows},
                            {"midi", midi_rows},
                            {"memory", memory_rows},
                            {"documents", document_rows},
                            {"paint", painting_rows},
                            {"playback", playback_rows},
                            {"editing", editing_rows},
                            {"hand", hand_rows},
                            {"sound", sound_rows},
                            {"scaling", scaling_rows}};

bool wanted(const std::string& name, int argc, char** argv) {
    return argc < 2 ||
           std::any_of(argv + 1, argv + argc, [&](const char* part) { return name.find(part) != name.npos; });
}

}  // namespace

}  // namespace bench

int main(int argc, char** argv) {
    tq::GraphicsRuntime graphics(tq::GraphicsRuntime::Screen::Never);
    fmt::print("{:<58} {:>10} {:<8} {:<34} {:>7}\n", "benchmark", "figure", "unit", "yardstick", "ratio");
    for (const bench::Group& group : bench::groups)
        if (bench::wanted(group.name, argc, argv)) group.run();
    return 0;
}
