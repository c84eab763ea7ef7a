// Where the sounds of a document's buffers are found, and that they are heard.
#include "app/patch/sound_files.h"

#include <cmath>

#include "app/patch/session.h"
#include "app/program.h"
#include "host/sound.h"
#include "model/events.h"
#include "sounds.h"

namespace tq::test {
namespace {

std::string document_with(const std::string& buffer) {
    return R"({"tq.sorvo":"","header":{"fileversion":100},"tracks":[{"name":"A","events":[
        {"start":100,"duration":200,"pitch":60.0,"velocity":127.0,"buffer":")" +
           buffer + R"("},{"start":500,"duration":200,"pitch":60.0,"velocity":127.0,"buffer":")" + buffer +
           R"(","bufferstart":10.0,"bufferend":20.0}]}]})";
}

struct SoundFilesTest : testing::Test, SessionListener {
    TemporaryFolder folder;
    Session session;
    std::optional<SoundFiles> sounds;
    std::vector<std::string> errors;

    SoundFilesTest() {
        session.listen(*this);
        sounds.emplace(session);
        for (const char* name : {"one", "two", "one/deep"})
            std::filesystem::create_directory(folder.path / name);
        write_silence(folder.file("outside.wav"), 7);
        write_silence(folder.file("one/kick.wav"), 100);
        write_silence(folder.file("one/deep/kick.wav"), 8);
        write_silence(folder.file("two/kick.wav"), 300);
        folder.file_with("two/text.wav", "no sound");
        write_sound(folder.file("one/snare.flac"), std::vector<float>(4410),
                    {.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16});
        for (const char* path : {"one/kick", "one/snare", "two/kick", "two/snare", "two/text"})
            document(path + std::string(".json"), path + 4);
    }
    void document(const std::string& name, const std::string& buffer) {
        folder.file_with(name, document_with(buffer));
    }
    void error(const Object&, const std::string& text) override { errors.push_back(text); }
    void open(const std::string& name) {
        errors.clear();
        EXPECT_TRUE(session.open(folder.file(name))) << name;
    }
    double length(size_t i = 0) { return session.box().tracks[0]->events.at(i)->link().length; }
};

TEST_F(SoundFilesTest, areThoseBesideTheDocument) {
    open("one/kick.json");
    EXPECT_EQ(length(), 100);
    EXPECT_EQ(session.box().tracks[0]->events.at(1)->link().end, 20) << "the document's range";
    open("two/kick.json");
    EXPECT_EQ(length(), 300) << "another document's sound of the same name";
    open("one/snare.json");
    EXPECT_EQ(length(), 100);
    EXPECT_FALSE(buffer_named(session.host(), gensym("kick"))) << "not kept for ever";
    open("two/snare.json");
    EXPECT_EQ(length(), 0);
    ASSERT_EQ(errors.size(), 1u) << "said once, though two events miss it";
    EXPECT_TRUE(errors[0].starts_with("no sound for the buffer \"snare\"")) << errors[0];
    EXPECT_EQ(session.box().tracks[0]->events.at(0)->link().name, gensym("snare"));
    write_silence(folder.file("two/snare.wav"), 50);
    session.send("readagain");
    EXPECT_EQ(length(), 50) << "it has come meanwhile";
    open("two/text.json");
    ASSERT_GE(errors.size(), 1u);
    EXPECT_TRUE(errors[0].starts_with("could not read \"" + folder.file("two/text.wav") + "\": "))
        << errors[0];
    errors.clear();
    session.send("read \"" + folder.file("one/kick.json") + "\"");
    EXPECT_EQ(length(), 100);
    session.send("event start 0 <buffer> snare </buffer>");
    EXPECT_EQ(length(), 100) << "a message finds them too";
    EXPECT_EQ(errors, std::vector<std::string>());
}

TEST_F(SoundFilesTest, leaveBuffersThatWereMadeOtherwise) {
    ASSERT_FALSE(buffer_read(session.host(), gensym("kick"), folder.file("outside.wav")));
    open("one/kick.json");
    EXPECT_EQ(length(), 7);
    open("two/kick.json");
    EXPECT_EQ(length(), 7);
}

TEST_F(SoundFilesTest, areNeverOutsideTheDocumentsFolder) {
    for (const std::string& name :
         {std::string("../outside"), folder.file("outside"), std::string("deep/kick"), std::string(".."),
          std::string("."), std::string("../../etc/passwd"), std::string(5000, 'x')}) {
        document("one/d.json", name);
        open("one/d.json");
        EXPECT_EQ(length(), 0) << name;
        EXPECT_EQ(errors.size(), 1u) << name;
    }
    session.send("read");  // cancelled: an untitled document
    errors.clear();
    session.send("event start 0 <buffer> kick </buffer>");
    EXPECT_EQ(errors, std::vector<std::string>()) << "beside nothing is nothing";
}

struct BufferProgram : testing::Test {
    TemporaryFolder folder;
    BufferProgram() {
        std::vector<float> ramp;
        for (int i = 0; i < 4410; ++i) ramp.push_back(static_cast<float>(i) / 4410);
        write_sound(folder.file("kick.wav"), ramp);
        write_silence(folder.file("silence.wav"), 100);
        folder.file_with("d.json", document_with("kick"));
        folder.file_with("missing.json", document_with("nosuch"));
        folder.file_with("s.txt", "event start 0 <buffer> kick </buffer>\nint 1\n.wait 1\n");
    }
    /// The first samples from a time of the file that was rendered.
    std::vector<float> heard(double ms, long count) {
        std::string fault;
        const SoundRef sound = read_sound_file(folder.file("out.wav"), fault);
        std::vector<float> samples;
        for (long i = 0; sound && i < count; ++i)
            samples.push_back(sound->frame(std::lround(ms * 44.1) + i)[0]);
        return samples;
    }
};

TEST_F(BufferProgram, playsTheSoundsBesideADocumentInsteadOfItsNotes) {
    ASSERT_EQ(run_program(folder, "render d.json --wav out.wav --midi out.mid").err, "");
    const std::vector<float> first = heard(100, 4410), second = heard(500, 441);
    ASSERT_EQ(first.size(), 4410u);
    for (size_t i = 0; i < first.size(); ++i)
        ASSERT_NEAR(first[i], 0.4 * static_cast<double>(i) / 4410, 1. / 32768) << i;
    for (size_t i = 0; i < second.size(); ++i)
        ASSERT_NEAR(second[i], 0.4 * static_cast<double>(441 + i) / 4410, 1. / 32768) << i;
    for (float sample : heard(201, 10000)) ASSERT_EQ(sample, 0) << "and nothing else";
    EXPECT_NE(text_of_file(folder.file("out.mid")).find("\x90\x3c\x7f"), std::string::npos);
}

TEST_F(BufferProgram, takesBuffersFromTheCommandLine) {
    EXPECT_EQ(run_program(folder, "render --buffer nosuch=kick.wav missing.json --wav out.wav").err, "");
    EXPECT_GT(heard(150, 1).at(0), 0.1);
    EXPECT_EQ(run_program(folder, "render d.json --buffer kick=silence.wav --wav out.wav").err, "");
    EXPECT_EQ(heard(150, 1).at(0), 0) << "rather than the one beside the document";
    EXPECT_NE(run_program(folder, "script --buffer kick=kick.wav s.txt")
                  .out.find("</note> <buffer> kick 0. 100. 1. </buffer>"),
              std::string::npos);
    const ProgramRun missing = run_program(folder, "render missing.json --wav out.wav");
    EXPECT_EQ(missing.status, 0);
    EXPECT_EQ(missing.err,
              "sorvo: no sound for the buffer \"nosuch\": beside the document is no file of that name (.wav, "
              ".flac, .aif, .aiff or .ogg)\n");
    EXPECT_GT(std::abs(heard(150, 100).at(50)), 0) << "its note is heard instead";
    for (auto [arguments, status, error] :
         {std::tuple{"render d.json --wav out.wav --buffer kick=none.wav", 1,
                     "sorvo: could not read \"none.wav\": No such file or directory\n"},
          {"script --buffer kick=d.json s.txt", 1, "sorvo: could not read \"d.json\": "},
          {"play --buffer kick d.json", 2, "sorvo: --buffer takes NAME=FILE, not \"kick\"\n"},
          {"script --buffer =kick.wav s.txt", 2, "sorvo: --buffer takes NAME=FILE, not \"=kick.wav\"\n"}}) {
        const ProgramRun run = run_program(folder, arguments);
        EXPECT_EQ(run.status, status) << arguments;
        EXPECT_TRUE(run.err.starts_with(error)) << arguments << '\n' << run.err;
    }
}

}  // namespace
}  // namespace tq::test
