#include "model/buffers.h"

#include <random>

#include "app/script_fixture.h"
#include "host/host.h"
#include "model/events.h"
#include "model/tracks.h"
#include "sounds.h"

namespace tq::test {
namespace {

struct Buffers : ScriptTest {
    Buffers() {
        write_silence(folder.file("long.wav"), 2000);
        write_silence(folder.file("short.wav"), 500);
        say("track_add one");
    }
    /// Makes or replaces a buffer from "long" or "short".
    Lines make(const std::string& name, const std::string& file) {
        return say(".buffer " + name + " \"" + folder.file(file + ".wav") + "\"");
    }
    Event& event(size_t i = 0) { return *box().tracks[0]->events.at(i); }
    long refcount(const char* name) {
        const BufferOverview* overview = box().buffers.find(gensym(name));
        return overview ? overview->refcount() : 0;
    }
    void range(double start, double end) {
        event().make_link().start = start;
        event().make_link().end = end;
    }
    /// Name, length, start, end and ratio, and whether there is a buffer.
    std::string link(size_t i = 0) {
        const BufferLink& l = event(i).link();
        return atom_gettext(
            Atoms{l.name, l.length, l.start, l.end, l.ratio, long{event(i).buffer() != nullptr}});
    }
    void read_link(const std::string& link) {
        read_document(
            R"({"tq.sorvo":"","header":{"fileversion":100},"tracks":[{"name":"A","events":[{"start":0,"duration":500,)" +
            link + "}]}]}");
    }
};

const char* const linked = "event start 0 duration 500 <note> 60 100 </note> <buffer> kick </buffer>";
const char* const adapted = "event start 0 duration 500 <note> 60 100 </note> <buffer> kick 1 </buffer>";

TEST_F(Buffers, areLinkedByNameAndSentWithTheEvent) {
    make("kick", "long");
    EXPECT_TRUE(says(std::string(linked) + "\nint 1\n.wait 100\nint 0", "out0",
                     "out0 0 event duration 500 <note> 60. 100. </note> <buffer> kick 0. 2000. 1. </buffer> "
                     "<bpf> Pitch 60. 0. 60. 500. </bpf>\nout0 0 stop"));
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 1. 1");
    say("event id 1 <buffer> nosuch </buffer>");
    EXPECT_TRUE(event().link().name.empty()) << "a name without a buffer unlinks";
    say("undo");
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 1. 1");
    for (const char* nothing : {"<buffer> <empty> </buffer>", "<buffer> </buffer>"}) {
        say("event id 1 " + std::string(nothing));
        EXPECT_TRUE(event().link().name.empty()) << nothing;
        EXPECT_FALSE(event().buffer()) << nothing;
        say("undo");
    }
    EXPECT_EQ(refcount("kick"), 1);
    say("event start 900 duration 1 <buffer> nosuch </buffer>");
    EXPECT_EQ(event(1).linked, nullptr);
}

TEST_F(Buffers, relateTheirLengthToTheEventWhenAdapted) {
    make("kick", "long");
    say(adapted);
    EXPECT_EQ(event().link().ratio, 4);
    say("event id 1 duration 1000");
    EXPECT_EQ(event().link().ratio, 2);
    say("undo");
    EXPECT_EQ(event().link().ratio, 4);
    for (const char* without : {"<buffer> kick 0 </buffer>", "<buffer> kick </buffer>"}) {
        say(std::string("event id 1 ") + without);
        EXPECT_EQ(event().link().ratio, 1) << without;
        say("undo");
        EXPECT_EQ(event().link().ratio, 4);
    }
    TQ_Prseq_Events_SetEventDuration(event(), 0);
    event().make_link().adapt = true;
    TQ_Prseq_Buffer_CalculateBufferRatio(event());
    EXPECT_EQ(event().link().ratio, 1) << "no division by zero";
}

TEST_F(Buffers, countTheEventsThatLinkToThem) {
    make("kick", "long");
    say(linked);
    say(linked);
    EXPECT_EQ(refcount("kick"), 2);
    {
        EventRef copy = TQ_Prseq_Events_DuplicateEvent(box(), event());
        EXPECT_EQ(refcount("kick"), 3);
        auto slices = TQ_Prseq_Events_SliceEvent(box(), event(), 200);
        EXPECT_EQ(refcount("kick"), 5);
    }
    EXPECT_EQ(refcount("kick"), 2) << "freed events do not count";
    say(".wait 100\nevent id 1 <buffer> </buffer>");
    EXPECT_EQ(refcount("kick"), 1);
    say("event id 2 <buffer> </buffer>");
    EXPECT_EQ(refcount("kick"), 0);
    say("undo");
    EXPECT_EQ(refcount("kick"), 2);
    say("track_delete 0");
    EXPECT_EQ(refcount("kick"), 2) << "the history keeps them";
    say(".buffer kick\nundo");
    EXPECT_EQ(link(1), "kick 0. 0. 2000. 1. 0") << "what the history kept has heard of it";
    make("kick", "short");
    EXPECT_EQ(link(1), "kick 500. 0. 500. 1. 1");
    say("track_delete 0\nundoredo_clear");
    EXPECT_EQ(refcount("kick"), 0) << "the history is gone";
}

TEST_F(Buffers, comeAndGo) {
    make("kick", "long");
    say(linked);
    range(100, 300);
    say(".buffer kick");
    EXPECT_EQ(link(), "kick 0. 100. 300. 1. 0");
    EXPECT_TRUE(says("int 1\n.wait 1\nint 0", "out0",
                     "out0 0 event duration 500 <note> 60. 100. </note> <bpf> Pitch 60. 0. 60. 500. </bpf>\n"
                     "out0 0 stop"));
    make("kick", "short");
    EXPECT_EQ(link(), "kick 500. 0. 500. 1. 1") << "the range is the whole again";
    make("kick", "long");
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 1. 1") << "replaced: the whole stays the whole";
    range(100, 900);
    make("kick", "short");
    EXPECT_EQ(link(), "kick 500. 100. 500. 1. 1") << "replaced: a part stays within it";
    say("event id 1 <buffer> kick 1 </buffer>");
    make("kick", "long");
    EXPECT_EQ(event().link().ratio, 4);
    EXPECT_TRUE(same_lines(
        make("kick", "none"),
        {"error tq.sorvo: could not read \"" + folder.file("none.wav") + "\": No such file or directory"}));
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 4. 1") << "nothing has changed";
    write_sound(folder.file("nothing.wav"), {});
    make("kick", "nothing");
    EXPECT_EQ(link(), "kick 0. 0. 0. 0. 1");
    make("kick", "short");
    EXPECT_EQ(link(), "kick 500. 0. 500. 1. 1");
}

TEST_F(Buffers, ofADocumentMayComeLater) {
    read_link(R"("buffer":"kick","bufferstart":100.0,"bufferend":300.0,"bufferadapt":1)");
    EXPECT_EQ(link(), "kick 0. 100. 300. 0. 0");
    EXPECT_EQ(refcount("kick"), 1);
    make("kick", "long");
    EXPECT_EQ(link(), "kick 2000. 100. 300. 4. 1") << "the document's range stays";
    say(".buffer kick");
    make("kick", "long");
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 4. 1") << "only when it comes for the first time";
    read_link(R"("buffer":"kick","bufferstart":100.0,"bufferend":300.0)");
    EXPECT_EQ(link(), "kick 2000. 100. 300. 1. 1") << "there already";
    read_link(R"("buffer":"kick")");
    EXPECT_EQ(link(), "kick 2000. 0. 2000. 1. 1") << "without a range";
    say(".buffer kick");
    read_link(R"("buffer":"kick")");
    make("kick", "short");
    EXPECT_EQ(link(), "kick 500. 0. 500. 1. 1") << "without a range, later";
}

TEST_F(Buffers, ofUndoneChangesAreTheOnesOfToday) {
    make("a", "long");
    make("b", "short");
    say("event start 0 duration 500 <note> 60 100 </note> <buffer> a </buffer>\n.wait 100");
    range(1000, 1500);
    say("event id 1 <buffer> b </buffer>\n.wait 100");
    EXPECT_EQ(link(), "b 500. 0. 500. 1. 1");
    EXPECT_EQ(refcount("a"), 0);
    say("undo");
    EXPECT_EQ(link(), "a 2000. 1000. 1500. 1. 1") << "with its range";
    say("redo");
    make("a", "short");
    say("undo");
    EXPECT_EQ(link(), "a 500. 500. 500. 1. 1") << "within what it is now";
    say("redo\n.buffer a\nundo");
    EXPECT_EQ(link(), "a 0. 1000. 1500. 1. 0") << "kept by name";
    make("a", "long");
    EXPECT_EQ(link(), "a 2000. 0. 2000. 1. 1");
}

TEST_F(Buffers, mayBeOutlivedByEventsAndByDocuments) {
    EventRef event;
    {
        std::ostringstream nowhere;
        Script other({}, nowhere);
        std::istringstream lines(".buffer kick \"" + folder.file("long.wav") + "\"\n" + linked);
        other.run(lines, "other");
        event = EventRef(other.session().box().tracks[0]->events.at(0));
        EXPECT_TRUE(event->buffer());
    }
    EXPECT_FALSE(event->buffer());
    EXPECT_EQ(event->link().name, gensym("kick"));
}

/// However buffers come and go and events are linked, deleted and brought back, every link is bound exactly
/// when there is a buffer, knows its length, and counts once.
TEST_F(Buffers, andLinksAgreeAfterAnything) {
    std::mt19937 random(7);
    const char* const names[] = {"a", "b", "c"};
    auto below = [&](size_t n) { return random() % n; };
    for (int step = 0; step < 400; ++step) {
        const std::string name = names[below(3)];
        const std::string id = std::to_string(1 + below(static_cast<size_t>(box().eventcounter) + 1));
        const std::string lines[] = {
            ".buffer " + name + " \"" + folder.file(below(2) ? "long.wav\"" : "short.wav\""),
            ".buffer " + name,
            "event start " + std::to_string(below(5000)) + " <buffer> " + name + " 1 </buffer>",
            "event start " + std::to_string(below(5000)) + " <buffer> " + name + " 1 </buffer>",
            "event id " + id + " duration " + std::to_string(below(500)) + " <buffer> " + name + " </buffer>",
            "undo",
            "redo",
            ".wait 100",
            below(4) ? "redo" : "track_delete 0"};
        say(lines[below(std::size(lines))]);
        for (const TrackRef& track : box().tracks)
            track->events.for_each([&](const Event& e) {
                const Buffer* buffer = buffer_named(box().host(), e.link().name);
                ASSERT_EQ(e.buffer(), buffer) << "step " << step;
                ASSERT_EQ(e.link().length, buffer ? buffer->use()->ms() : 0) << "step " << step;
                if (buffer) {
                    ASSERT_LE(e.link().end, e.link().length) << "step " << step;
                }
            });
        for (const char* n : names)
            if (const BufferOverview* overview = box().buffers.find(gensym(n))) {
                ASSERT_EQ(overview->refcount(), static_cast<long>(overview->links.size()));
                for (const LinkedBuffer& l : overview->links) ASSERT_EQ(l.values().name, gensym(n));
            }
    }
}

}  // namespace
}  // namespace tq::test
