#include "host/sound.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <limits>

#include "host/buffer.h"
#include "host/class.h"
#include "host/host.h"
#include "sounds.h"
#include "temporary_folder.h"

namespace tq::test {
namespace {

struct SoundFile : testing::Test {
    TemporaryFolder folder;
    std::string fault;
    SoundRef read(const std::string& name) { return read_sound_file(folder.file(name), fault); }
};

TEST_F(SoundFile, isReadInEveryCommonFormat) {
    const std::vector<float> samples = {0.5f, -0.5f, 0.25f, 0, -1, 0.75f};
    for (auto [name, format] : {std::pair{"a.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
                                {"b.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
                                {"c.aiff", SF_FORMAT_AIFF | SF_FORMAT_FLOAT}}) {
        write_sound(folder.file(name), samples, {.rate = 48000, .channels = 2, .format = format});
        const SoundRef sound = read(name);
        ASSERT_TRUE(sound) << name << ": " << fault;
        EXPECT_EQ(sound->channels, 2);
        EXPECT_EQ(sound->rate, 48000);
        ASSERT_EQ(sound->frames(), 3);
        for (size_t i = 0; i < samples.size(); ++i)
            EXPECT_NEAR(sound->samples[i], samples[i], 1e-4) << name << ' ' << i;
    }
}

TEST_F(SoundFile, thatIsNoneGivesAReason) {
    folder.file_with("empty.wav", "");
    folder.file_with("text.wav", "track_add A\nthis is no sound at all, though it is called one\n");
    folder.file_with("header.wav", "RIFF\xff\xff\xff\x7fWAVE");
    std::filesystem::create_directory(folder.path / "folder.wav");
    ASSERT_EQ(mkfifo(folder.file("pipe.wav").c_str(), 0600), 0);
    for (const char* name :
         {"none.wav", "empty.wav", "text.wav", "header.wav", "folder.wav", "pipe.wav", "/dev/zero"}) {
        fault.clear();
        EXPECT_FALSE(name[0] == '/' ? read_sound_file(name, fault) : read(name)) << name;
        EXPECT_FALSE(fault.empty()) << name;
        EXPECT_EQ(fault.find('\n'), fault.npos) << name;
    }
}

TEST_F(SoundFile, thatIsBrokenIsReadAsFarAsItGoes) {
    const std::string whole =
        text_of_file(write_sound(folder.file("whole.wav"), std::vector<float>(1000, 0.5f),
                                 {.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16}));
    for (size_t length = 0; length < whole.size(); length += length < 100 ? 1 : 97) {
        folder.file_with("cut.wav", std::string_view(whole).substr(0, length));
        const SoundRef sound = read("cut.wav");
        EXPECT_TRUE(!sound || sound->frames() <= static_cast<long>(length) / 2) << length;
    }
    std::string lying = whole;
    for (size_t i = 40; i < 44; ++i) lying[i] = '\x7f';  // "two gigabytes of samples follow"
    folder.file_with("lying.wav", lying);
    const SoundRef sound = read("lying.wav");
    EXPECT_TRUE(!sound || sound->frames() <= 1000);
}

TEST_F(SoundFile, mayHaveNoFramesAndNoNumbers) {
    write_sound(folder.file("none.wav"), {});
    ASSERT_TRUE(read("none.wav")) << fault;
    EXPECT_EQ(read("none.wav")->frames(), 0);
    EXPECT_EQ(read("none.wav")->ms(), 0);
    const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
    write_sound(folder.file("odd.wav"), {nan, 0.5f, inf, -inf});
    EXPECT_EQ(read("odd.wav")->samples, (std::vector<float>{0, 0.5f, 0, 0}));
}

/// Notes what it is told.
struct Listener : Object {
    explicit Listener(Host& host) : Object(host, listener_class()) {}
    static const Class& listener_class() {
        static const Class the_class("listener");
        return the_class;
    }
    void notify(const Notification& n) override {
        told += n.message.text() + " " + n.data.text() + (buffer_named(host(), n.data) ? "; " : " (gone); ");
    }
    std::string told;
};

TEST(Buffer, tellsThoseWhoReferenceItsName) {
    Host host;
    const Symbol kick = gensym("kick");
    Listener one(host), two(host);
    globalsymbol_reference(one, kick);
    globalsymbol_reference(one, kick);
    auto gone = std::make_unique<Listener>(host);
    globalsymbol_reference(*gone, kick);
    gone.reset();
    const SoundRef first(new Sound(1, 1000, {1}));
    EXPECT_TRUE(buffer_set(host, kick, first));
    const SoundRef used = buffer_named(host, kick)->use();
    EXPECT_TRUE(buffer_set(host, kick, SoundRef(new Sound(1, 1000, {2, 3}))));
    EXPECT_EQ(used->samples.at(0), 1) << "what is in use stays";
    globalsymbol_dereference(one, kick);
    EXPECT_TRUE(buffer_remove(host, kick));
    EXPECT_FALSE(buffer_remove(host, kick));
    globalsymbol_dereference(one, kick);
    globalsymbol_dereference(one, kick);
    buffer_set(host, kick, first);
    EXPECT_EQ(one.told,
              "globalsymbol_binding kick; buffer_modified kick; globalsymbol_unbinding kick (gone); ");
    EXPECT_EQ(two.told, "");
    const Through through(host, gensym("taken"), [](auto&&...) {});
    EXPECT_FALSE(buffer_set(host, gensym("taken"), first));
    EXPECT_FALSE(buffer_set(host, {}, first));
}

}  // namespace
}  // namespace tq::test
