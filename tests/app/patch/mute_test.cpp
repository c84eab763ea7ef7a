// Muting a track ends what sounds of it.
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

}  // namespace
}  // namespace tq::test
