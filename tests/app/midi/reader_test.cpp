#include "app/midi/reader.h"

#include <gtest/gtest.h>

#include <sstream>

#include "app/midi/controllers.h"
#include "app/midi/files.h"

namespace tq {
namespace {

using test::midi_file;

const std::string end = " 00 ff2f00";

void spell(std::ostream& text, std::span<const CurvePoint> curve) {
    for (const CurvePoint& point : curve)
        text << (&point == curve.data() ? "" : " ") << point.ms << " " << point.value;
}

// "[NAME channel/program]" before the notes of each track, with ":bank" and ":fine" where there are;
// "START+DURATION PITCH/VELOCITY" a note, its bends as "(MS SEMITONES …)", its controllers as "{NAME MS VALUE
// …}".
std::string spell(const MidiSong& song) {
    std::ostringstream text;
    for (const MidiTrack& track : song.tracks) {
        text << (&track == &song.tracks.front() ? "[" : " [") << track.name << " " << int{track.channel}
             << "/" << int{track.voice.program};
        if (track.voice.bank || track.voice.fine_bank)
            text << ":" << track.voice.bank << ":" << track.voice.fine_bank;
        text << "]";
        for (std::size_t i = 0; i < track.notes.size(); ++i) {
            const MidiNote& note = track.notes[i];
            text << " " << note.start_ms << "+" << note.duration_ms << " " << int{note.pitch} << "/"
                 << int{note.velocity};
            if (const auto curve = track.bend(note); !curve.empty()) {
                spell(text << " (", curve);
                text << ")";
            }
            for (const ControllerCurves& curves : track.controllers) {
                const auto curve = MidiTrack::curve(curves, i);
                if (curve.empty()) continue;
                spell(text << " {" << controller_name(curves.controller) << " ", curve);
                text << "}";
            }
        }
    }
    return text.str();
}

struct Case {
    const char* what;
    std::vector<std::string> tracks;  // of a file of format 0 when it is one, else of format 1
    const char* expected;
    int division = 96;
};

// 96 ticks a quarter note, 500 ms, unless a row says otherwise; so 60 (hex) is a quarter.
const std::vector<Case> cases = {
    {"a note", {"00 903c40 60 803c00" + end}, "[Acoustic Grand Piano 0/0] 0+500 60/64"},
    {"running status, note-on with velocity 0 as end, running on after a meta and a sysex",
     {"00 903c40 60 3c00 00 ff0100 00 3e41 00 f003010203 60 3e00" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 500+500 62/65"},
    {"equal notes that overlap end first in, first out",
     {"00 903c01 30 3c02 30 3c03 30 3c00 30 3c00 30 3c00" + end},
     "[Acoustic Grand Piano 0/0] 0+750 60/1 250+750 60/2 500+750 60/3"},
    {"an end without a note, and a note without length",
     {"00 803c40 00 903c40 00 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+0 60/64"},
    {"notes left open last to the end of the longest track",
     {"00 903c40 30 3c41" + end, "8140 ff2f00"},
     "[Acoustic Grand Piano 0/0] 0+1000 60/64 250+750 60/65"},
    {"a tempo anywhere applies to every track, within notes as well",
     {"00 903c40 8140 3c00" + end, "60 ff51030f4240" + end},
     "[Acoustic Grand Piano 0/0] 0+1500 60/64"},
    {"several tempos at one tick: the last holds",
     {"60 ff5103030d40 00 ff51030f4240 00 903c40 60 3c00" + end},
     "[Acoustic Grand Piano 0/0] 500+1000 60/64"},
    {"film frames: 25 a second, 40 ticks each, whatever the tempo",
     {"00 ff51030f4240 8768 903c40 8768 3c00" + end},
     "[Acoustic Grand Piano 0/0] 1000+1000 60/64",
     0xe728},
    {"film frames: 29 stands for 29.97",
     {"1e 903c40 1e 3c00" + end},
     "[Acoustic Grand Piano 0/0] 1001+1001 60/64",
     0xe301},
    {"a channel and a program are a track; unnamed ones take the sound's name",
     {"00 c028 00 993040 00 913c40 00 903c40 00 c049 00 903e40 00 c028 00 904040 60 b07b00" + end},
     "[Violin 0/40] 0+500 60/64 0+500 64/64 [Flute 0/73] 0+500 62/64 [Acoustic Grand Piano 1/0] 0+500 60/64 "
     "[Drums 9/0] 0+500 48/64"},
    {"a name that several tracks share is told apart by sound, then by channel",
     {"00 ff0302 4869 00 c128 00 c228 00 903c40 00 913c40 00 923c40 60 ff2f00"},
     "[Hi: Acoustic Grand Piano 0/0] 0+500 60/64 [Hi: Violin (channel 2) 1/40] 0+500 60/64 "
     "[Hi: Violin (channel 3) 2/40] 0+500 60/64"},
    {"a drum kit is a track",
     {"00 c908 00 993040 00 c910 00 993140 60 ff2f00"},
     "[Drums 9/8] 0+500 48/64 [Drums 9/16] 0+500 49/64"},
    {"a bank counts from the next program on; banks that stand for drums and for none",
     {"00 b00008 00 b02003 00 c028 00 903c40 00 b00009 00 903e40 00 c028 00 904040 00 b17800 00 b10078 00 "
      "c110 00 "
      "913c40 00 b20079 00 b22001 00 c210 00 923c40 60 ff2f00"},
     "[Violin 0/40:8:3] 0+500 60/64 0+500 62/64 [Violin 0/40:9:0] 0+500 64/64 [Drums 1/16] 0+500 60/64 "
     "[Drawbar Organ 2/16:0:1] 0+500 60/64"},
    {"a program in another track counts unless the track has its own",
     {"00 903c40 60 3c00" + end, "00 c028 60ff2f00", "00 c049 00 903c40 60 3c00" + end},
     "[Flute 0/73] 0+500 60/64 [Flute 0/73] 0+500 60/64"},
    {"names that are not UTF-8 are Latin-1, blanks and controls go",
     {"00 ff0305 2046fc0a20 00 903c40 60 3c00" + end},
     "[F\xc3\xbc 0/0] 0+500 60/64"},
    {"a bend before the note is where it begins; held bends are steps",
     {"00 e00060 00 903c40 30 e00040 30 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 (0 1 250 1 250 0 500 0)"},
    {"bends at the note's end or after it are not its own, nor level zero",
     {"00 903c40 30 e00040 30 e00060 00 803c00 00 903e40 00 e00040 60 803e40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 500+500 62/64"},
    {"the range of bends, coarse and fine, and its change under a held bend",
     {"00 b06400 00 6500 00 060c 00 2632 00 e00060 00 903c40 30 b0060c 00 2600 30 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 (0 6.25 250 6.25 250 6 500 6)"},
    {"data entry for other parameters leaves the range alone",
     {"00 b06405 00 6500 00 060c 00 6400 00 6301 00 060c 00 e00060 00 903c40 60 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 (0 1 500 1)"},
    {"reset all controllers lets the wheel go and keeps the range",
     {"00 b06400 00 6500 00 0604 00 e00060 00 b07900 00 903c40 30 e00060 30 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 (0 0 250 0 250 2 500 2)"},
    {"bends are a channel's own, and those of a port",
     {"00 ff210101 00 e00060 60 ff2f00", "00 903c40 60 3c00" + end, "00 ff210101 00 903c40 60 3c00" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 [Acoustic Grand Piano 0/0] 0+500 60/64 (0 1 500 1)"},
    {"controllers and pressures are curves of the notes that they fall on, where they leave what they begin "
     "with",
     {"00 b00740 00 b00a40 00 903c40 30 b00720 18 d030 00 a03c31 00 a03d32 18 803c40 00 b00764 00 d000 00 "
      "903e40 60 "
      "803e40" +
      end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 {Volume 0 64 250 64 250 32 500 32} {Pressure 0 0 375 0 375 48 "
     "500 48} "
     "{Key Pressure 0 0 375 0 375 49 500 49} 500+500 62/64"},
    {"of controllers, too, a track's own words count, and what it leaves unsaid is taken from others",
     {"00 b00740 00 b00b20 60 ff2f00", "00 b00750 00 903c40 60 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 {Volume 0 80 500 80} {Expression 0 32 500 32}"},
    {"a reset lets go what it should: not the volume, nor the tuning",
     {"00 b00740 00 b00b20 00 b00130 00 b06502 00 b06400 00 b07900 00 903c40 60 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 {Volume 0 64 500 64}"},
    {"tuning is a bend",
     {"00 b06500 00 b06402 00 b0063f 00 903c40 60 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/64 (0 -1 500 -1)"},
    {"the pedal holds what is let go, until it rises or the key is struck anew",
     {"00 903c40 18 b04040 18 803c40 30 903e40 18 903c40 18 803e40 00 803c40 30 b0403f" + end},
     "[Acoustic Grand Piano 0/0] 0+625 60/64 500+500 62/64 625+375 60/64"},
    {"a pedal that nobody lets go, and one that comes with the end of a note",
     {"00 903c40 30 b0407f 00 803c40 00 903e40 30 803e40 60 ff2f00"},
     "[Acoustic Grand Piano 0/0] 0+250 60/64 250+750 62/64"},
    {"all notes end, all sound is off",
     {"00 903c40 30 b07b00 00 903e40 30 b07800 60 ff2f00"},
     "[Acoustic Grand Piano 0/0] 0+250 60/64 250+250 62/64"},
    {"a byte out of range is the largest within",
     {"00 90 3cff 60 803c40" + end},
     "[Acoustic Grand Piano 0/0] 0+500 60/127"},
};

TEST(MidiReader, givesNotesAndTheirBends) {
    for (const Case& c : cases)
        EXPECT_EQ(spell(read_midi_file(midi_file(c.tracks.size() > 1, c.division, c.tracks))), c.expected)
            << c.what;
}

TEST(MidiReader, tellsTemposSignaturesLengthAndWhatItIgnored) {
    const MidiSong song = read_midi_file(
        midi_file(1, 96,
                  {"00 ff580403021808 8140 ff51030f4240 00 ff580406031808 00 b00740 00 d040 60 ff2f00",
                   "00 a03c40" + end}));
    ASSERT_EQ(song.tempos.size(), 2u);
    EXPECT_EQ(song.tempos[0].quarter_us, 500000u);
    EXPECT_EQ(song.tempos[1].ms, 1000);
    EXPECT_EQ(song.tempos[1].tick, 192);
    ASSERT_EQ(song.signatures.size(), 2u);
    EXPECT_EQ(song.signatures[0].beats, 3);
    EXPECT_EQ(song.signatures[1].ms, 1000);
    EXPECT_EQ(song.signatures[1].unit, 8);
    EXPECT_EQ(song.length_ms, 2000);
    EXPECT_EQ(song.left_out, LeftOut{});
    EXPECT_TRUE(song.tracks.empty());
}

TEST(MidiReader, countsWhatItLeavesOutAndWhatItMends) {
    auto file = midi_file(
        0, 96,
        {"00 f0057e7f0901f7 00 f00441424344 00 b06305 00 b00601 00 b02701 00 90 3cff 60 803c40" + end});
    const auto unpromised = midi_file(0, 96, {"00 904040 60 804040" + end});
    file.insert(file.end(), unpromised.begin() + 14, unpromised.end());
    const MidiSong song = read_midi_file(file);
    EXPECT_EQ(spell(song), "[Acoustic Grand Piano 0/0] 0+500 60/127");
    EXPECT_EQ(text_of(song.left_out),
              "left out: 1 system exclusive messages, 1 parameter messages, 1 fine controller values, 1 "
              "tracks that "
              "the file does not promise; repaired: 1 bytes out of range");
    std::string noise;
    for (int i = 0; i < 100; ++i) noise += "00 90 3cff ";
    EXPECT_THROW(read_midi_file(midi_file(0, 96, {noise + end})), MidiError) << "that is no slip any more";
}

TEST(MidiReader, keepsThePedalAsACurveWhenAskedTo) {
    const auto file = midi_file(0, 96, {"00 903c40 18 b04040 18 803c40 30 b0403f" + end});
    EXPECT_EQ(spell(read_midi_file(file, {.pedal_as_curve = true})),
              "[Acoustic Grand Piano 0/0] 0+250 60/64 {Sustain 0 0 125 0 125 64 250 64}");
}

TEST(MidiReader, skipsUnknownChunksLongHeadersAndStrayBytesAtTheEnd) {
    auto good = test::from_hex("4d546864 00000008 0000 0001 0060 0000 58585858 00000002 0102");
    const auto rest = midi_file(0, 96, {"00 903c40 60 803c40" + end});
    good.insert(good.end(), rest.begin() + 14, rest.end());
    good.resize(good.size() + 7);
    EXPECT_EQ(spell(read_midi_file(good)), "[Acoustic Grand Piano 0/0] 0+500 60/64");
}

// --- what is wrong with a file ---

struct Wrong {
    const char* what;
    std::string file;  // hex
    const char* message;
};

const std::string header = "4d546864 00000006 0000 0001 0060 ";

const std::vector<Wrong> wrongs = {
    {"nothing", "", "no MIDI file header at byte 0"},
    {"another kind of file", "52494646 00000000", "no MIDI file header at byte 0"},
    {"a header cut short", "4d546864 00000006 00", "a chunk of 6 bytes where 1 are left at byte 4"},
    {"a short header", "4d546864 00000002 0000", "a header shorter than six bytes at byte 8"},
    {"format 2", "4d546864 00000006 0002 0001 0060",
     "the file holds separate patterns (format 2), which have no common time at byte 8"},
    {"format 7", "4d546864 00000006 0007 0001 0060", "an unknown file format 7 at byte 8"},
    {"no ticks", "4d546864 00000006 0000 0001 0000", "a division of zero ticks a quarter note at byte 12"},
    {"odd frames", "4d546864 00000006 0000 0001 e504",
     "a division of 27 frames a second and 4 ticks a frame at byte 12"},
    {"no track", header, "the header promises 1 tracks, the file ends after 0 at byte 14"},
    {"a length beyond the file", header + "4d54726b 7fffffff 00",
     "a chunk of 2147483647 bytes where 1 are left at byte 18"},
    {"a track of another name only", header + "58585858 00000000",
     "the header promises 1 tracks, the file ends after 0 at byte 22"},
    {"data without status", header + "4d54726b 00000003 003c40",
     "a data byte before any status byte at byte 23"},
    {"a status of the wire", header + "4d54726b 00000003 00f800",
     "a status byte that does not belong in a file at byte 23"},
    {"an endless number", header + "4d54726b 00000006 ffffffffff00",
     "a number longer than four bytes at byte 22"},
    {"a message cut short", header + "4d54726b 00000003 00903c",
     "the data ends in the middle of something: 1 bytes wanted, 0 left at byte 25"},
    {"a meta beyond its track", header + "4d54726b 00000004 00ff017f",
     "the data ends in the middle of something: 127 bytes wanted, 0 left at byte 26"},
    {"a tempo of two bytes", header + "4d54726b 00000006 00ff51020102",
     "a tempo that is not three bytes long at byte 26"},
    {"a tempo of zero", header + "4d54726b 00000007 00ff5103000000", "a tempo of zero at byte 26"},
};

TEST(MidiReader, tellsWhatIsWrong) {
    for (const Wrong& wrong : wrongs) try {
            read_midi_file(test::from_hex(wrong.file));
            ADD_FAILURE() << wrong.what;
        } catch (const MidiError& error) {
            EXPECT_STREQ(error.what(), wrong.message) << wrong.what;
        }
}

// 20,000 notes that sound through 20,000 bends would be 800 million points.
TEST(MidiReader, refusesASquareOfBendsAndNotes) {
    std::string events;
    for (int i = 0; i < 20000; ++i) events += i == 0 ? "00903c40" : "003c40";
    for (int i = 0; i < 20000; ++i) events += i % 2 ? "01e00060" : "01e00050";
    EXPECT_THROW(read_midi_file(midi_file(0, 96, {events + end})), MidiError);
}

}  // namespace
}  // namespace tq
