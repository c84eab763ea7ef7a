// docs/tutorial.md does what it says: its files are written, its commands run, what they print is what it
// shows, and the pictures in it are those that they make.
#include <cmath>

#include "app/program.h"
#include "docs/document.h"
#include "golden.h"
#include "host/image.h"
#include "host/sound.h"

namespace tq::test {
namespace {

struct Tutorial : testing::Test {
    TemporaryFolder folder;
    const std::string text = text_of_file(SORVO_DOCS "/tutorial.md");
    std::string window_lines;

    void SetUp() override { ::setenv("XDG_STATE_HOME", folder.file("state").c_str(), 1); }
    void TearDown() override { ::unsetenv("XDG_STATE_HOME"); }

    /// All that shell commands print in the folder.
    std::string shell(const std::string& commands) {
        folder.file_with("commands", commands);
        const std::string programs = std::filesystem::path(SORVO_PROGRAM).parent_path().string();
        const std::string run =
            "cd '" + folder.path.string() + "' && PATH='" + programs + "':$PATH sh commands >said 2>&1";
        EXPECT_NE(std::system(run.c_str()), -1);
        return text_of_file(folder.file("said"));
    }
    /// What was done in the window since it was opened.
    void close_window() {
        if (window_lines.empty()) return;
        const ProgramRun said = run_program(folder, "--stdin song.sorvo", window_lines + ".quit\n");
        EXPECT_EQ(said.status, 0);
        EXPECT_EQ(("\n" + said.out).find("\nerror"), std::string::npos) << said.out;
        EXPECT_EQ(("\n" + said.err).find("\n-:"), std::string::npos) << said.err;
        window_lines.clear();
    }
    void run(const Block& block, const std::string& shown) {
        if (block.kind == "sorvo") {
            folder.file_with(block.name, block.text);
        } else if (block.kind == "console" || block.kind == "hand") {
            window_lines += block.text;
        } else if (block.kind == "sh") {
            close_window();
            EXPECT_EQ(shell(block.text), shown) << block.text;
        } else {
            EXPECT_EQ(block.kind, "output");
        }
    }
};

TEST_F(Tutorial, doesWhatItSaysAndEndsInASongWithSound) {
    const std::vector<Block> blocks = blocks_of(text);
    ASSERT_GT(blocks.size(), 8u);
    for (size_t i = 0; i < blocks.size(); ++i) {
        const bool shows = i + 1 < blocks.size() && blocks[i + 1].kind == "output";
        run(blocks[i], shows ? blocks[i + 1].text : "");
    }
    std::string fault;
    const SoundRef sound = read_sound_file(folder.file("song.wav"), fault);
    ASSERT_TRUE(sound) << fault;
    EXPECT_GT(sound->ms(), 7900);
    float peak = 0;
    for (const float sample : sound->samples) peak = std::max(peak, std::abs(sample));
    EXPECT_GT(peak, 0.1f);

    size_t pictures = 0;
    const std::string mark = "](tutorial-", ending = ".png)";
    for (size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1), ++pictures) {
        const size_t begin = at + mark.size();
        const std::string name = text.substr(begin, text.find(ending, begin) - begin);
        const SurfaceRef picture = jgraphics_image_surface_create_from_file(folder.file(name + ".png"));
        ASSERT_TRUE(picture) << name;
        EXPECT_TRUE(looks_like_file(*picture, name, SORVO_DOCS "/tutorial-" + name + ".png"));
    }
    EXPECT_EQ(pictures, 2u);
}

}  // namespace
}  // namespace tq::test
