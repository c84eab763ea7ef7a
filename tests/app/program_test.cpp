// What the program's commands return, and what they say of bad input.
#include "app/program.h"

#include <sys/stat.h>

#include "app/midi/files.h"
#include "file/random_document.h"
#include "sounds.h"

namespace tq::test {
namespace {

struct Program : testing::Test {
    TemporaryFolder folder;
    Program() {
        folder.file_with("good.json", good_document);
        write_silence(folder.file("kick.wav"), 100);
        folder.file_with("bad.json", "{\"tq.sorvo\":");
        folder.file_with("bad.mid", "MThd and no more");
        folder.file_with("good.txt", "track_add A\n.show view\n");
        folder.file_with("bad.txt", "# one\n\n.nonsense 1\n");
        folder.file_with("good.mid", text_of(midi_file(1, 480, {"00 90 3c 40 83 60 80 3c 00 00 ff 2f 00"})));
        std::filesystem::create_directory(folder.path / "folder");
        folder.file_with("huge.json",
                         "{\"tq.sorvo\": 1,\n\"label\": \"" + std::string(65 << 20, 'x') + "\"}");
    }
    ProgramRun run(const std::string& arguments, const std::string& input = "") {
        return run_program(folder, arguments, input);
    }
};

struct ProgramRow {
    const char* arguments;
    int status;
    const char* error;  ///< all of standard error, or how its one line begins when it ends in "…"
};

TEST_F(Program, returnsWhatItSays) {
    const ProgramRow rows[] = {
        {"--version", 0, ""},
        {"--help", 0, ""},
        {"render --help", 0, ""},
        {"import good.mid out.json", 0, ""},
        {"import bad.mid out.json", 1, "sorvo: could not read \"bad.mid\": …"},
        {"import none.mid out.json", 1, "sorvo: could not read \"none.mid\": No such file or directory\n"},
        {"import good.mid folder", 1, "sorvo: could not write \"folder\": Is a directory\n"},
        {"import good.mid none/out.json", 1,
         "sorvo: could not write \"none/out.json\": No such file or directory\n"},
        {"import good.mid", 2, "…"},
        {"render good.json --midi out.mid", 0, ""},
        {"render good.mid --png out.png --size 300x200", 0, ""},
        {"render good.mid --wav out.wav", 0, ""},
        {"render bad.json --midi out.mid", 1,
         "sorvo: could not read \"bad.json\": incomplete JSON at byte 12\n"},
        {"render bad.mid --midi out.mid", 1, "sorvo: could not read \"bad.mid\": …"},
        {"render none.json --midi out.mid", 1, "sorvo: The file \"none.json\" could not be found\n"},
        {"render good.json --midi none/out.mid", 1,
         "sorvo: could not write \"none/out.mid\": No such file or directory\n"},
        {"render good.mid --wav none/out.wav", 1,
         "sorvo: could not write \"none/out.wav\": No such file or directory\n"},
        {"render good.mid --png none/out.png", 1,
         "sorvo: could not write \"none/out.png\": No such file or directory\n"},
        {"import /dev/zero out.json", 1, "sorvo: could not read \"/dev/zero\": it is larger than 1 GiB\n"},
        {"play huge.json", 1, "sorvo: could not read \"huge.json\": string too large at byte …"},
        {"script huge.json", 2, "huge.json:2: a line of more than 16 MiB\n"},
        {"render good.json", 2, "sorvo render: say what to write: --wav, --midi or --png\n"},
        {"render good.json --png out.png --size 3x", 2,
         "sorvo: --size takes WIDTHxHEIGHT in pixels, not \"3x\"\n"},
        {"render good.json --png out.png --size 0x10", 2,
         "sorvo: --size takes WIDTHxHEIGHT in pixels, not \"0x10\"\n"},
        {"render good.json --nonsense", 2, "…"},
        {"script good.txt", 0, ""},
        {"script none.txt", 1, "sorvo: could not read \"none.txt\": No such file or directory\n"},
        {"script folder", 1, "sorvo: could not read \"folder\": Is a directory\n"},
        {"script good.txt bad.txt", 2, "bad.txt:3: …"},
        {"script --size wide good.txt", 2, "sorvo: --size takes WIDTHxHEIGHT in pixels, not \"wide\"\n"},
        {"script", 2, "…"},
        {"play none.json", 1, "sorvo: The file \"none.json\" could not be found\n"},
        {"play bad.json", 1, "sorvo: could not read \"bad.json\": incomplete JSON at byte 12\n"},
    };
    for (const ProgramRow& row : rows) {
        SCOPED_TRACE(std::string("sorvo ") + row.arguments);
        ProgramRun said = run(row.arguments);
        std::string_view expected = row.error, ellipsis = "…";
        EXPECT_EQ(said.status, row.status) << said.err;
        if (expected.ends_with(ellipsis)) {
            EXPECT_TRUE(said.err.starts_with(expected.substr(0, expected.size() - ellipsis.size())))
                << said.err;
            EXPECT_GT(said.err.size(), expected.size() - ellipsis.size());
            EXPECT_TRUE(row.status == 2 || lines_of(said.err).size() == 1) << said.err;
        } else {
            EXPECT_EQ(said.err, expected);
        }
    }
}

TEST_F(Program, leavesTheTargetAloneWhenItFails) {
    folder.file_with("out.json", "old");
    EXPECT_EQ(run("import bad.mid out.json").status, 1);
    EXPECT_EQ(text_of_file(folder.file("out.json")), "old");
    EXPECT_EQ(run("import good.mid out.json").status, 0);
    EXPECT_NE(text_of_file(folder.file("out.json")).find("\"pitch\": 60.0"), std::string::npos);
}

TEST_F(Program, readsPipes) {
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    for (const auto& [source, arguments] : {std::pair{"good.mid", "play pipe"},
                                            {"good.mid", "render pipe --png out.png"},
                                            {"good.json", "render pipe --midi out.mid"},
                                            {"good.mid", "script --document pipe good.txt"},
                                            {"good.txt", "script pipe"},
                                            {"good.mid", "import pipe out.json"}}) {
        const std::string feed = "cd '" + folder.path.string() + "'; cat " + source + " >pipe &";
        ASSERT_EQ(std::system(feed.c_str()), 0);
        EXPECT_EQ(run(arguments).status, 0) << arguments << " of " << source;
    }
}

TEST_F(Program, runsScripts) {
    ProgramRun said = run("script --times --size 500x400 --document good.json good.txt -",
                          ".wait 12.5\n.show parts\nnonsense\n2.5");
    EXPECT_EQ(said.status, 0);
    EXPECT_EQ(said.err, "");
    Lines lines = lines_of(said.out);
    EXPECT_EQ(lines.back(), "12.500 error tq.sorvo: doesn't understand \"nonsense\"")
        << "2.5 is the int 2: it starts, and says nothing";
    EXPECT_NE(said.out.find("\n0.000 view 0.25 0.125 0.75 0.5\n"), std::string::npos)
        << "as the document left it";
    for (const char* line :
         {".wait",      ".wait x",       ".wait -1",         ".wait 1 2",      ".size 0 5",
          ".size 5",    ".paint a b",    ".wheel 1 2 3",     ".focus maybe",   ".tempo 0",
          ".transport", ".feedback 1",   ".receiver",        ".show",          ".show nonsense",
          ".nonsense",  ".open",         ".import a b",      ".seed -1",       ".file",
          ".file read", ".zoom 1 1 0 1", ".zoom 1 1 1 1001", ".file nonsense", ".answer x y",
          ".replay x",  ".lines 9"}) {
        ProgramRun fault = run("script -", std::string("getcycle\n") + line + "\ngetcycle");
        EXPECT_EQ(fault.status, 2) << line;
        EXPECT_EQ(fault.out, "out3 cycle 0\n") << line << " ends the run";
        EXPECT_TRUE(fault.err.starts_with("-:2: ")) << fault.err;
        EXPECT_EQ(lines_of(fault.err).size(), 1u) << fault.err;
    }
}

/// The input ends before the script does, and the window stays for it.
TEST_F(Program, takesLinesFromStandardInput) {
    std::filesystem::create_directory(folder.path / "sub");
    folder.file_with("sub/a.txt", "track_add A\n.run b.txt\n.wait 1b\n.show cursor\nnonsense\n.bad\n");
    folder.file_with("sub/b.txt", "event start 1b <note> 60 90 </note>");
    ::setenv("XDG_STATE_HOME", folder.file("state").c_str(), 1);
    const ProgramRun said = run("--stdin", R"(.tempo 60
.run sub/a.txt
.quiet on
event start 2b <note> 60 90 </note>
event_delete 1 77
nonsense
.nonsense
.quiet off
.show events
.nonsense
.quiet on
)");
    ::unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(said.status, 0);
    Lines lines = lines_of(said.out);
    std::erase_if(
        lines, [](const std::string& line) { return line.starts_with("out") || line.starts_with("post"); });
    ASSERT_FALSE(lines.empty());
    std::string& first = lines[0];
    if (const size_t at = first.find("steps 2"); at != first.npos) first[at + 6] = '1';  // two bursts
    EXPECT_TRUE(same_lines(lines, lines_of(R"(
        quiet lines 4 events 0 steps 1 mistakes 3
        quiet -:5: event_delete: no event with id 77
        quiet -:6: doesn't understand "nonsense"
        quiet -:7: no such line: .nonsense
        event 2 track 0 start 2000. duration 1000. pitch 60. velocity 90. selected 0
        cursor -1
        script sub/a.txt stopped sub/a.txt:6
        quiet lines 3 events 0 steps 0 mistakes 1
        quiet sub/a.txt:5: doesn't understand "nonsense")")));
    EXPECT_NE(said.err.find("-:10: no such line: .nonsense\n"), std::string::npos) << said.err;
    EXPECT_NE(said.err.find("sub/a.txt:6: no such line: .bad\n"), std::string::npos) << said.err;
    const ProgramRun quiet = run("script --quiet bad.txt", "");
    EXPECT_EQ(quiet.status, 2);
    EXPECT_EQ(quiet.out, "quiet lines 1 events 0 steps 0 mistakes 0\n");
}

}  // namespace
}  // namespace tq::test
