// Every way in which the program writes files does the same to what is there already.
#include <fcntl.h>
#include <sys/stat.h>

#include <csignal>
#include <thread>

#include "app/midi/files.h"
#include "app/program.h"
#include "host/files.h"
#include "host/unfinished_files.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;

struct Writing : testing::Test {
    Writing() {
        run_program(folder, "script -", "event start 0 duration 9 <note> 60 99 </note>\nwrite good.json");
        folder.file_with("good.mid", text_of(midi_file(1, 480, {"00 90 3c 40 83 60 80 3c 00 00 ff 2f 00"})));
    }
    /// The program writes the file in each of its ways. What it complains of, and how much stands in the
    /// file.
    struct Written {
        std::string fault;
        size_t size;
    };
    std::vector<Written> write_each_way(const std::string& name) {
        std::vector<Written> all;
        for (const char* way :
             {"render good.json --wav ", "render good.json --midi ", "render good.json --png ",
              "import good.mid ", "script - write ", "script - .paint "}) {
            const std::string_view line = std::string_view(way).substr(0, 9) == "script - " ? way + 9 : "";
            const ProgramRun run = line.empty() ? run_program(folder, way + name)
                                                : run_program(folder, "script -", std::string(line) + name);
            std::string fault = run.err;
            for (const std::string& said : lines_of(run.out))
                if (said.starts_with("error")) fault += said + "\n";
            all.push_back({fault, pipe_size(name)});
        }
        return all;
    }
    size_t pipe_size(const std::string& name) const {
        if (!fs::is_fifo(folder.path / name)) return text_of_file(folder.file(name)).size();
        std::string bytes(1 << 20, '\0');
        const ssize_t got = ::read(pipe, bytes.data(), bytes.size());
        return got < 0 ? 0 : static_cast<size_t>(got);
    }
    void expect_written(const std::string& name) {
        for (const Written& written : write_each_way(name)) {
            EXPECT_EQ(written.fault, "");
            EXPECT_GT(written.size, 30u);
        }
    }
    TemporaryFolder folder;
    int pipe = -1;
};

TEST_F(Writing, followsLinksAndKeepsModeAndOwner) {
    folder.file_with("target", "old");
    const bool other_owner = ::chown(folder.file("target").c_str(), 1234, 4321) == 0;
    fs::permissions(folder.path / "target", fs::perms(0640));
    fs::create_symlink("target", folder.path / "near");
    fs::create_symlink(folder.path / "near", folder.path / "far");
    fs::create_symlink("to come", folder.path / "dangling");
    expect_written("far");
    expect_written("dangling");
    for (const char* link : {"near", "far", "dangling"}) EXPECT_TRUE(fs::is_symlink(folder.path / link));
    EXPECT_TRUE(fs::exists(folder.path / "to come"));
    struct stat status {};
    ASSERT_EQ(::stat(folder.file("target").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_TRUE(!other_owner || (status.st_uid == 1234 && status.st_gid == 4321));
}

TEST_F(Writing, goesIntoPipesAndTakesLongNames) {
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    pipe = ::open(folder.file("pipe").c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GT(::fcntl(pipe, F_SETPIPE_SZ, 1 << 20), 0);
    expect_written("pipe");
    EXPECT_TRUE(fs::is_fifo(folder.path / "pipe"));
    ::close(pipe);
    expect_written(std::string(250, 'n'));
}

TEST_F(Writing, refusesReadOnlyFiles) {
    folder.file_with("kept", "old");
    fs::permissions(folder.path / "kept", fs::perms(0444));
    for (const Written& written : write_each_way("kept")) {
        EXPECT_TRUE(written.fault.ends_with("could not write \"kept\": it is read-only\n")) << written.fault;
        EXPECT_EQ(written.size, 3u);
    }
}

TEST_F(Writing, overwritesWhereTheFolderAdmitsNoNewFile) {
    const fs::path closed = folder.path / "closed", file = closed / "file";
    fs::create_directory(closed);
    std::ofstream(file) << "something longer";
    fs::permissions(file, fs::perms(0666));
    fs::permissions(closed, fs::perms(0555));
    fs::permissions(folder.path, fs::perms(0777));
    ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::getuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(2);
        std::string fault;
        const bool written = write_file(file.string(), "new", fault),
                   made = write_file(closed / "more", "", fault);
        ::_exit(written && !made && fault == "Permission denied" ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(text_of_file(file), "new");
    EXPECT_TRUE(fs::is_empty(folder.path / "sorvo/kept")) << "the copy was needed only meanwhile";
    fs::permissions(closed, fs::perms(0777));
}

TEST_F(Writing, leavesNothingBesideWhenItIsInterrupted) {
    run_program(folder, "script -", "event start 0 duration 9000000 <note> 60 99 </note>\nwrite long.json");
    folder.file_with("out.wav", "old");
    const size_t before = static_cast<size_t>(std::distance(fs::directory_iterator(folder.path), {}));
    for (const char* signal : {"INT", "TERM"}) {
        const std::string command = "cd '" + folder.path.string() + "' && timeout --preserve-status -s " +
                                    signal + " 0.7 '" SORVO_PROGRAM "' render long.json --wav out.wav";
        EXPECT_GT(WEXITSTATUS(std::system(command.c_str())), 128);
        EXPECT_EQ(text_of_file(folder.file("out.wav")), "old");
    }
    EXPECT_EQ(static_cast<size_t>(std::distance(fs::directory_iterator(folder.path), {})), before);
    const std::string named = folder.file_with("named", "unfinished");
    if (const pid_t child = ::fork(); child == 0) {
        begin_unfinished(named);
        std::raise(SIGTERM);
    } else {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    }
    EXPECT_FALSE(fs::exists(named));
}

}  // namespace
}  // namespace tq::test
