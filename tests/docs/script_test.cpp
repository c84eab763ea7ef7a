// The examples of docs/script.md print what it shows.
#include "docs/document.h"

namespace tq::test {
namespace {

TEST(ScriptDocument, itsExamplesSayWhatItShows) {
    TemporaryFolder folder;
    const std::vector<Block> blocks = blocks_of(Document("script.md").text);
    for (const Block& block : blocks)
        if (block.kind == "sorvo") folder.file_with(block.name, block.text);
    int shown = 0;
    for (size_t i = 0; i + 1 < blocks.size(); ++i) {
        if (blocks[i].kind != "sorvo" || blocks[i + 1].kind != "output") continue;
        SCOPED_TRACE(blocks[i].name);
        std::ostringstream out;
        Script script({}, out);
        std::istringstream lines(blocks[i].text);
        script.run(lines, folder.file(blocks[i].name));
        Lines said;
        for (std::string line : lines_of(out.str())) {
            if (const size_t at = line.find(folder.path.string()); at != line.npos)
                line.erase(at, folder.path.string().size() + 1);  // it is run inside the folder
            if (!line.starts_with("out2") && !line.starts_with("out3 maxtime") &&
                !line.starts_with("out3 undoredo"))
                said.push_back(line);
        }
        EXPECT_TRUE(same_lines(said, lines_of(blocks[i + 1].text)));
        ++shown;
    }
    EXPECT_EQ(shown, 5);
}

}  // namespace
}  // namespace tq::test
