// What is installed: it runs from wherever it is moved to, and what desktops are told of it is true.
#include <QMimeDatabase>
#include <QRegularExpression>

#include <set>

#include "app/program.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;
using Words = std::set<std::string>;

/// What the first group of an expression matches, everywhere in a text.
Words found(const std::string& text, const char* expression) {
    const QRegularExpression wanted(expression, QRegularExpression::MultilineOption);
    Words words;
    for (auto matches = wanted.globalMatch(QString::fromStdString(text)); matches.hasNext();)
        words.insert(matches.next().captured(1).toStdString());
    return words;
}

/// Installed into one folder, moved to another.
struct Install : testing::Test {
    TemporaryFolder folder;
    const std::string prefix = folder.file("moved to"), program = prefix + "/bin/sorvo";

    void SetUp() override {
        const std::string first = folder.file("first");
        ASSERT_EQ(shell("'" SORVO_CMAKE "' --install '" SORVO_BUILD_FOLDER "' --prefix '" + first + "'"), 0);
        fs::rename(first, prefix);
    }
    /// What the command writes is in the file `said`.
    int shell(const std::string& command) const {
        return std::system(("(" + command + ") >'" + folder.file("said") + "' 2>&1").c_str());
    }
    std::string said() const { return text_of_file(folder.file("said")); }
    std::string share(const std::string& name) const { return text_of_file(prefix + "/share/" + name); }
    std::string desktop_entry() const { return share("applications/tq.sorvo.sequencer.desktop"); }
    std::string description() const { return share("metainfo/tq.sorvo.sequencer.metainfo.xml"); }
    ProgramRun run(const std::string& arguments, const std::string& input = "") const {
        return run_program(folder, arguments, input, program);
    }
};

TEST_F(Install, runsFromWhereItWasMovedToAsItDoesWhereItWasBuilt) {
    ASSERT_EQ(shell("ldd '" + program + "'"), 0);
    EXPECT_EQ(said().find(SORVO_BUILD_FOLDER), std::string::npos) << said();
    const std::string script =
        "new_track_color 0\ntrack_add A\nevent start 0 <note> 60 100 </note>\n.command select_all\n"
        "event_inspector_open\n.show fields\n.paint picture.png\n";
    const ProgramRun built = run_program(folder, "script -", script);
    const std::string picture = text_of_file(folder.file("picture.png"));
    fs::remove(folder.file("picture.png"));
    const ProgramRun installed = run("script -", script);
    EXPECT_NE(installed.out.find("field eventEd_"), std::string::npos) << "the form was found";
    EXPECT_EQ(installed.out, built.out);
    EXPECT_EQ(installed.err, "");
    EXPECT_TRUE(text_of_file(folder.file("picture.png")) == picture) << "with all icons";
}

TEST_F(Install, opensTheDemo) {
    ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
    const ProgramRun demo = run("--demo --stdin", ".wait 500\n.show document\n.quit\n");
    ::unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(demo.status, 0) << demo.err;
    EXPECT_NE(demo.out.find("\"title\":\"First Steps\""), std::string::npos) << demo.out;
    EXPECT_EQ(run("--demo file.json").status, 2);
}

TEST_F(Install, hasAManualPageOfEveryCommandAndOption) {
    ASSERT_EQ(shell("gzip -dc '" + prefix + "/share/man/man1/sorvo.1.gz'"), 0);
    const std::string page = QString::fromStdString(said()).replace("\\-", "-").toStdString();
    std::string help = run("--help").out;
    const std::string commands = help.substr(help.find("Subcommands:"));
    const Words names = found(commands, "^  ([a-z]+) ");
    EXPECT_EQ(names.size(), 6u);
    EXPECT_EQ(names, found(page, "^\\.SS (.*)$"));
    for (const std::string& name : names) help += run(name + " --help").out;
    EXPECT_EQ(found(help, "(--[a-z]+)"), found(page, "(--[a-z]+)"));
    EXPECT_EQ(found(page, "\"sorvo ([0-9.]+)\""), found(run("--version").out, "sorvo ([0-9.]+)"));

    if (shell("man --version") != 0) GTEST_SKIP() << "man is missing: how the page is set was not checked";
    EXPECT_EQ(shell("man --warnings -l '" + prefix + "/share/man/man1/sorvo.1.gz' >/dev/null"), 0);
    EXPECT_EQ(said(), "");
}

TEST_F(Install, isNamedTheSameByWhateverNamesIt) {
    const Words icon = found(desktop_entry(), "^Icon=(.*)$"), run_by = found(desktop_entry(), "^Exec=(\\w+)");
    ASSERT_EQ(icon.size(), 1u);
    EXPECT_EQ(run_by, Words{"sorvo"}) << "each entry";
    EXPECT_EQ(found(description(), "<binary>(.*)</binary>"), run_by);
    EXPECT_EQ(found(description(), "<icon type=\"stock\">(.*)</icon>"), icon);
    for (const std::string& entry : found(description(), "<launchable type=\"desktop-id\">(.*)</launchable>"))
        EXPECT_NE(share("applications/" + entry), "") << entry;
    const std::string icons = "icons/hicolor/", drawing = "/apps/" + *icon.begin();
    EXPECT_NE(share(icons + "scalable" + drawing + ".svg"), "");
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const std::string side = std::to_string(size);
        const std::string picture = share(icons + side + "x" + side + drawing + ".png");
        ASSERT_GT(picture.size(), 24u) << size;  // the width of a PNG stands at bytes 16 to 19
        EXPECT_EQ(int(static_cast<unsigned char>(picture[19])) + 256 * int(picture[18]), size);
    }
    EXPECT_EQ(found(desktop_entry(), "^Exec=sorvo (--\\w+)$"), Words{"--demo"});
    EXPECT_NE(share("sorvo/resources/icons/" + *icon.begin() + ".png"), "") << "the window's";
}

TEST_F(Install, tellsDocumentsFromOtherFiles) {
    const fs::path data = prefix + "/share";
    ::setenv("XDG_DATA_DIRS", (data.string() + ":/usr/share").c_str(), 1);
    const std::string document = text_of_file(SORVO_DEMO "/first-steps.json"),
                      other = "{\"name\": \"tq.sorvo\"}";
    const QMimeDatabase types;
    const auto type_of = [&](const char* name, const std::string& text) {
        return types.mimeTypeForFile(QString::fromStdString(folder.file_with(name, text)))
            .name()
            .toStdString();
    };
    const std::string ours = *found(description(), "<mediatype>(.*)</mediatype>").begin();
    EXPECT_TRUE(types.mimeTypeForName(QString::fromStdString(ours)).inherits("application/json"));
    EXPECT_EQ(type_of("new.sorvo", ""), ours);
    EXPECT_EQ(type_of("song.sorvo", document), ours);
    EXPECT_EQ(type_of("song", document), ours);
    EXPECT_EQ(type_of("song.json", document), "application/json");
    EXPECT_NE(type_of("other", other), ours) << other;
    EXPECT_EQ(found(desktop_entry(), "([^=;]+);audio/midi;$"), Words{ours});
    EXPECT_EQ(run("script --document song.sorvo -", "").err, "");
}

TEST_F(Install, isWhatDesktopsAsk) {
    const std::pair<const char*, std::string> checks[] = {
        {"desktop-file-validate", "'" + prefix + "/share/applications/tq.sorvo.sequencer.desktop'"},
        {"appstreamcli",
         "validate --no-net '" + prefix + "/share/metainfo/tq.sorvo.sequencer.metainfo.xml'"}};
    std::string missing;
    for (const auto& [tool, arguments] : checks) {
        if (shell(std::string("command -v ") + tool) != 0)
            missing += std::string(" ") + tool;
        else
            EXPECT_EQ(shell(std::string(tool) + " " + arguments), 0) << said();
    }
    if (!missing.empty()) GTEST_SKIP() << "missing, so not asked:" << missing;
}

}  // namespace
}  // namespace tq::test
