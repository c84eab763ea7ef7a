// The list of recent documents, over several processes.
#include "app/patch/recent_files.h"

#include <sys/wait.h>

#include "app/program.h"

namespace tq::test {
namespace {

struct RecentFiles : testing::Test {
    RecentFiles() { ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1); }
    std::string made(int number) { return folder.file_with("doc" + std::to_string(number), "x"); }
    TemporaryFolder folder;
};

TEST_F(RecentFiles, areTheLastTenTheLatestFirst) {
    EXPECT_TRUE(recent_files().empty());
    for (int i = 0; i < 12; ++i) remember_file(made(i));
    remember_file(made(5));
    remember_file(folder.file("none"));
    std::vector<std::string> expected;
    for (int i : {5, 11, 10, 9, 8, 7, 6, 4, 3, 2}) expected.push_back(folder.file("doc" + std::to_string(i)));
    EXPECT_EQ(recent_files(), expected);
    std::filesystem::remove(expected[1]);
    EXPECT_EQ(recent_files(), expected) << "it may come back";
    EXPECT_EQ(lines_of(run_program(folder, "recent").out), expected);
}

TEST_F(RecentFiles, ofSeveralProcessesAreAllThere) {
    std::vector<pid_t> children;
    for (int child = 0; child < 5; ++child) {
        children.push_back(::fork());
        if (children.back() != 0) continue;
        for (int i = 0; i < 20; ++i) remember_file(made(2 * child + i % 2));
        ::_exit(0);
    }
    for (pid_t child : children) ::waitpid(child, nullptr, 0);
    std::vector<std::string> paths = recent_files();
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(paths.size(), 10u);
    EXPECT_EQ(std::unique(paths.begin(), paths.end()), paths.end());
}

}  // namespace
}  // namespace tq::test
