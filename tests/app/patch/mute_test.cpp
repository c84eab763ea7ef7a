// Muting a track ends what sounds of it; tracks that are solo sound alone.
#include "app/patch/note_listener.h"
#include "app/script_fixture.h"
#include "app/sound/recorder.h"
#include "file/random_document.h"
#include "sounds.h"

namespace tq::test {
namespace {

struct Muting : ScriptTest {
    NoteListener notes{script.session()};
    Recorder recorder;
};

TEST_F(Muting, endsNotesAndSamplesOfThatTrackAlone) {
    notes.add(recorder);
    std::string tracks;
    for (const char* destination : {"", "gm:3", "gm:3"})
        tracks += std::string(tracks.empty() ? "" : ",") + R"({"name":"T","destination":")" + destination +
                  R"(","events":[{"start":0,"duration":1000,"pitch":60.0,"velocity":99.0},
                    {"start":1,"duration":1000,"velocity":99.0,"buffer":"kick","bufferend":900.0}]})";
    say(".buffer kick " + write_silence(folder.file("kick.wav"), 900));
    read_document(R"({"tq.sorvo":1,"header":{"fileversion":100},"tracks":[)" + tracks + "]}");
    say("int 1\n.wait 100\ntrack_mute 0 1\n.wait 100\ntrack_mute 1 1\ntrack_mute 2 0\n.wait 100");
    ASSERT_EQ(recorder.notes().size(), 6u);
    for (const PlayedNote& note : recorder.notes()) {
        const double ended[] = {100, 200, note.ms + 1000};
        EXPECT_EQ(note.ms + note.duration_ms, ended[note.track]) << "of track " << note.track;
    }
}

TEST_F(Muting, andSoloTracksSoundAloneWhileAllAreSent) {
    notes.add(recorder);
    say("track_add A\nevent track 0 start 0 duration 50 <note> 60 90 </note>\n"
        "track_add B\ntrack_destination gm:3\nevent track 1 start 0 duration 50 <note> 64 90 </note>\n"
        "track_solo 1 1");
    const Lines sent = say("int 1\n.wait 100");
    EXPECT_EQ(
        std::ranges::count_if(sent, [](const std::string& line) { return line.find("<note>") != line.npos; }),
        2);
    ASSERT_EQ(recorder.notes().size(), 1u);
    EXPECT_EQ(recorder.notes()[0].track, 1);
    say("int 0\ntrack_solo 1 0\nposition 0\nint 1\n.wait 100");
    EXPECT_EQ(recorder.notes().size(), 3u);
}

}  // namespace
}  // namespace tq::test
