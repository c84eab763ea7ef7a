#include "app/sound/recorder.h"

#include <gtest/gtest.h>

namespace tq {
namespace {

PlayedNote note(double ms, double duration_ms, const std::string& source, Voice voice = {}, long track = -1) {
    return {.ms = ms, .duration_ms = duration_ms, .voice = voice, .source = source, .track = track};
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
    EXPECT_EQ(notes[3].curve, (std::vector<CurvePoint>{{0, 60}, {300, 63}}));
    EXPECT_EQ(recorder.end_ms(), 1060);
}

TEST(Recorder, groupsNotesIntoPartsByTrackAndSound) {
    Recorder recorder;
    recorder.note(note(0, 10, "lead", {.program = 40}));
    recorder.note(note(1, 10, "1", {.drums = true}, 1));
    recorder.note(note(2, 10, "lead", {.program = 73}));
    recorder.note(note(3, 10, "lead", {.program = 40}));
    recorder.note(note(4, 10, "1", {.drums = true}, 2));
    std::vector<std::string> parts;
    for (const MidiPart& part : recorder.midi_parts({{1, "Rhythm"}, {2, "More"}}))
        parts.push_back(part.name + " " + std::to_string(part.notes.size()));
    EXPECT_EQ(parts, (std::vector<std::string>{"Violin 2", "Flute 1", "Rhythm 1", "More 1"}));
}

}  // namespace
}  // namespace tq
