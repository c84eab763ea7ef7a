// Bringing sounds beside a document, and what becomes of a document's own ones when it moves or goes.
#include "app/patch/gather_sounds.h"

#include <gtest/gtest.h>

#include "app/patch/add_sounds.h"
#include "app/patch/session.h"
#include "app/patch/sound_files.h"
#include "model/events.h"
#include "sounds.h"
#include "temporary_folder.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;

struct GatheredSoundsTest : testing::Test, SessionListener {
    TemporaryFolder folder;
    Session session;
    SoundFiles sounds{session};
    SoundGatherer gatherer;
    std::vector<std::string> errors;

    GatheredSoundsTest() {
        session.listen(*this);
        for (const char* name : {"lib", "song", "moved"}) fs::create_directory(folder.path / name);
    }
    void error(const Object&, const std::string& text) override { errors.push_back(text); }
    std::string file(const std::string& name) const { return folder.file(name); }
    bool add(const std::vector<std::string>& names) {
        std::vector<std::string> files;
        for (const std::string& name : names) files.push_back(file(name));
        return add_sounds(session, sounds, files, {});
    }
    GatheredSounds save(const std::string& name) {
        session.send("write \"" + file(name) + "\"");
        return gatherer.gather(session.box());
    }
    std::string heard(const std::string& name) {
        const Buffer* buffer = buffer_named(session.host(), gensym(name));
        return buffer ? fs::relative(buffer->path(), folder.path).string() : "";
    }
    const BufferLink& link(size_t i = 0) { return session.box().tracks.at(0)->events.at(i)->link(); }
};

using Names = std::vector<std::string>;

TEST_F(GatheredSoundsTest, areCopiedOnceAndNeverOverOthers) {
    for (const char* name : {"lib/kick.wav", "lib/LOUD.WAV", "lib/odd.Wav", "lib/gone.wav", "lib/undone.wav"})
        write_silence(file(name), 100);
    write_silence(file("lib/taken.wav"), 40);
    write_silence(file("lib/same.wav"), 50);
    ASSERT_TRUE(add({"lib/kick.wav", "lib/LOUD.WAV", "lib/odd.Wav", "lib/gone.wav", "lib/taken.wav",
                     "lib/same.wav", "lib/undone.wav"}));
    session.send("undo");
    session.call(BufferCall{"a/b", file("lib/kick.wav")});
    session.send("event start 9000 <buffer> a/b </buffer>");
    fs::remove(file("lib/gone.wav"));
    write_silence(file("song/taken.wav"), 41);
    write_silence(file("song/same.wav"), 50);
    const std::string taken = text_of_file(file("song/taken.wav"));

    const GatheredSounds first = save("song/mine.json");
    EXPECT_EQ(first.copied, (Names{"LOUD.wav", "kick.wav", "odd.wav"}))
        << "what undo took away is not copied";
    EXPECT_EQ(text_of_file(file("song/kick.wav")), text_of_file(file("lib/kick.wav")));
    EXPECT_EQ(text_of_file(file("song/taken.wav")), taken);
    ASSERT_EQ(first.told.size(), 3u);
    EXPECT_NE(first.told[0].find("\"a/b\""), std::string::npos) << first.told[0];
    EXPECT_NE(first.told[1].find("could not be copied"), std::string::npos) << first.told[1];
    EXPECT_NE(first.told[2].find("another sound"), std::string::npos) << first.told[2];

    const GatheredSounds again = save("song/mine.json");
    EXPECT_EQ(again.copied, Names{});
    EXPECT_EQ(again.told, (Names{first.told[0], first.told[1]})) << "the other has been told";
    EXPECT_EQ(std::distance(fs::directory_iterator(file("song")), {}), 6) << "nothing half done is left";
}

TEST_F(GatheredSoundsTest, aDocumentKeepsItsOwnWhereverItIsSaved) {
    write_silence(file("lib/kick.wav"), 100);
    write_silence(file("song/kick.wav"), 200);
    write_silence(file("moved/kick.wav"), 300);
    ASSERT_TRUE(add({"lib/kick.wav"}));
    for (const char* name : {"song/mine.json", "moved/mine.json"}) {
        save(name);
        session.send("event id 1 <buffer> </buffer>");
        session.send("undo");
        ASSERT_EQ(link().name, gensym("kick"));
        EXPECT_EQ(link().length, 100) << name << ": linked again, it is the same sound";
    }
    EXPECT_EQ(heard("kick"), "lib/kick.wav");
    EXPECT_EQ(errors, Names{});

    ASSERT_TRUE(session.open(file("song/mine.json")));
    EXPECT_EQ(link().length, 200) << "another document has its own";
    fs::create_directory(file("again"));
    fs::copy_file(file("song/kick.wav"), file("again/kick.wav"));
    write_silence(file("song/free.wav"), 1);
    write_silence(file("lib/free.wav"), 2);
    ASSERT_TRUE(add({"lib/kick.wav", "again/kick.wav", "lib/free.wav", "song/free.wav"}));
    EXPECT_EQ(heard("kick-2"), "lib/kick.wav");
    EXPECT_EQ(heard("free-2"), "lib/free.wav") << "the name is that of the file beside the document";
    EXPECT_EQ(heard("free"), "song/free.wav");
    EXPECT_EQ(session.host().buffers.size(), 4u) << "the same bytes are the same sound";
    session.send("read");  // cancelled: an untitled document
    ASSERT_TRUE(add({"moved/kick.wav"}));
    EXPECT_EQ(heard("kick"), "moved/kick.wav") << "what the other document has left means nothing";
    EXPECT_EQ(session.host().buffers.size(), 1u);
}

}  // namespace
}  // namespace tq::test
