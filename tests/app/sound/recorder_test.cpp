#include "app/sound/recorder.h"

#include <gtest/gtest.h>

namespace tq {
namespace {

PlayedNote note(double ms, double duration_ms, const std::string& source, Voice voice = {}) {
    return {ms, duration_ms, 60, 100, {}, voice, source};
}

TEST(Recorder, keepsStoppedNotesAsLongAsTheySounded) {
    Recorder recorder;
    recorder.note(note(0, 100, "0"));
    recorder.note(note(50, 1000, "0"));
    recorder.note(note(60, 1000, "1"));
    recorder.notes();
    PlayedNote bent = note(100, 1000, "0");
    bent.curve = {{0, 60}, {500, 65}, {1000, 60}};
    recorder.note(bent);
    recorder.stop("0", 400);
    recorder.note(note(500, 200, "0"));
    recorder.stop("0", 600);
    recorder.stop_all(2000);
    const auto& notes = recorder.notes();
    std::vector<double> durations;
    for (const PlayedNote& kept : notes) durations.push_back(kept.duration_ms);
    EXPECT_EQ(durations, (std::vector<double>{100, 350, 1000, 300, 100}));
    EXPECT_EQ(notes[3].curve, (std::vector<PitchPoint>{{0, 60}, {300, 63}}));
    EXPECT_EQ(recorder.end_ms(), 1060);
}

TEST(Recorder, groupsNotesIntoPartsBySourceAndSound) {
    Recorder recorder;
    recorder.note(note(0, 10, "lead", {40, false}));
    recorder.note(note(1, 10, "1", {0, true}));
    recorder.note(note(2, 10, "lead", {73, false}));
    recorder.note(note(3, 10, "lead", {40, false}));
    std::vector<std::string> parts;
    for (const MidiPart& part : recorder.midi_parts({{"1", "Rhythm"}}))
        parts.push_back(part.name + " " + std::to_string(part.notes.size()));
    EXPECT_EQ(parts, (std::vector<std::string>{"Violin 2", "Rhythm 1", "Flute 1"}));
}

}  // namespace
}  // namespace tq
