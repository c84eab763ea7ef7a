#include "app/sound/event_message.h"

#include <gtest/gtest.h>

#include "app/midi/controllers.h"

namespace tq {
namespace {

std::string spell(const std::optional<PlayedNote>& note) {
    if (!note) return "nothing";
    Atoms atoms = {note->duration_ms, note->pitch, note->velocity};
    for (const CurvePoint& point : note->curve) {
        atoms.push_back(point.ms);
        atoms.push_back(point.value);
    }
    return atom_gettext(atoms);
}

struct Row {
    const char* arguments;
    const char* note;  // duration, pitch, velocity, then ms and pitch of each point
};

TEST(EventMessage, givesItsNoteAndCurve) {
    const Row rows[] = {
        {"duration 500 <note> 60. 100. </note>", "500. 60. 100."},
        {"duration 500 <note> 60. 100. </note> <message> foo 1 </message> <bpf> Pitch 60. 0. 62. 500. </bpf>",
         "500. 60. 100. 0. 60. 500. 62."},
        {"duration 9 <note> 60. 1. </note> <bpf> Gain 0. 0. 1. 9. Pitch 60. 0. 61. 4. 60. 5. Pan 0. 0. "
         "</bpf>",
         "9. 60. 1. 0. 60. 4. 61. 9. 60."},
        {"duration 9 <note> 60. 1. </note> <buffer> b 0. 1. 1. </buffer> <parameter> Pitch 3. </parameter>",
         "9. 60. 1."},
        {"duration 9 <note> 60. 1. </note> <bpf> Gain 0. 0. 1. 9. </bpf>", "9. 60. 1."},
        {"duration 9 <note> 60. 1. </note> <bpf> Pitch 60. 0. 60. 9. </bpf>", "9. 60. 1."},
        {"duration 9", "nothing"},
        {"duration 9 <message> <note> 1. 2. </note> </message>", "nothing"},
        {"duration 9 <note> 60. 1. </note> <message> <bpf> Pitch 1. 0. 2. 9. </bpf> </message>", "9. 60. 1."},
        {"duration 9 <note> 60. 1. </note> <message> <bpf> Pitch 1. 0. </message> <bpf> Pitch 60. 0. 61. 9. "
         "</bpf>",
         "9. 60. 1. 0. 60. 9. 61."},
        {"duration 9 <note> 60. 1. </note> <bpf> Pitch 60. 0. 61. </bpf>", "9. 60. 1."},
        {"duration -9 <note> 60 1 </note>", "0. 60. 1."},
        {"duration 9 <note> a 1 </note>", "nothing"},
        {"duration 9 <note> 60 1", "nothing"},
        {"<note> 60 1 </note>", "nothing"},
        {"", "nothing"},
    };
    for (const Row& row : rows) {
        const Atoms atoms = atom_setparse(row.arguments);
        EXPECT_EQ(spell(parse_event_note(atoms)), row.note) << row.arguments;
    }
}

TEST(EventMessage, givesControllersByName) {
    const Atoms atoms = atom_setparse(
        "duration 9 <note> 60. 1. </note> <bpf> Pitch 60. 0. 60. 9. Volume 100. 0. 20. 9. Gain 1. 0. 2. 9. "
        "\"key "
        "pressure\" 5. 0. \"Controller 3\" 7. 0. \"Controller 64\" 1. 0. </bpf>");
    const PlayedNote note = parse_event_note(atoms).value();
    const std::vector<ControllerCurve> expected = {
        {Volume, {{0, 100}, {9, 20}}}, {KeyPressure, {{0, 5}}}, {3, {{0, 7}}}, {Sustain, {{0, 1}}}};
    EXPECT_EQ(note.controllers, expected);
}

TEST(EventMessage, givesWhatItPlaysOfABuffer) {
    const Row rows[] = {
        {"duration 9 <note> 60. 1. </note> <buffer> b 1. 2.5 0.5 </buffer>", "9. b 1. 2.5 0.5"},
        {"duration 9 <buffer> b 0 1 1 </buffer> <parameter> a 3. </parameter> <bpf> P 0. 0. </bpf>",
         "9. b 0. 1. 1."},
        {"duration 9 <message> m </message> <buffer> b 0. 1. 1. </buffer>", "9. b 0. 1. 1."},
        {"duration 9 <note> 60. 1. </note> <message> </message> <buffer> c 0. 1. 1. </buffer> </message> "
         "<buffer> b 0. 1. 1. </buffer>",
         "9. b 0. 1. 1."},
        {"duration 9 <note> 60. 1. </note> <message> </message> <buffer> c 0. 1. 1. </buffer> </message>",
         ""},
        {"duration 9 <note> 60. 1. </note> <parameter> a 3. </parameter>", ""},
        {"duration 9 <note> 60. 1. </note> <buffer> b 1. 2. </buffer>", ""},
        {"duration 9 <note> 60. 1. </note> <buffer> 7 1. 2. 3. </buffer>", ""},
        {"duration 9 <note> 60. 1. </note> <buffer> b x 2. 3. </buffer>", ""},
        {"duration 9 <note> 60. 1. </note> <buffer>", ""},
        {"duration 9 <note> 60.", ""},
        {"duration a <buffer> b 0. 1. 1. </buffer>", ""},
        {"duration", ""},
    };
    for (const Row& row : rows) {
        const auto part = parse_event_buffer(atom_setparse(row.arguments));
        EXPECT_EQ(part ? atom_gettext(
                             Atoms{part->duration_ms, part->name, part->start_ms, part->end_ms, part->ratio})
                       : "",
                  row.note)
            << row.arguments;
    }
}

TEST(EventMessage, tellsEventsAndStopsOfTracks) {
    const Atoms event = atom_setparse("2 event duration 500 <note> 60. 100. </note>");
    const auto parsed = parse_outlet_list(event);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->track, 2);
    EXPECT_EQ(parsed->kind, OutletList::Kind::Event);
    EXPECT_TRUE(parse_event_note(parsed->arguments));
    const Atoms stop = atom_setparse("3 stop");
    EXPECT_EQ(parse_outlet_list(stop)->kind, OutletList::Kind::Stop);
    for (const char* text : {"", "stop", "x stop", "1 go", "1.5 event", "1"})
        EXPECT_FALSE(parse_outlet_list(atom_setparse(text))) << text;
}

}  // namespace
}  // namespace tq
