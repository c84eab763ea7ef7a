// The console: what is entered and pasted, what it says of it, and which keys are its own.
#include "app/window/console.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QRegularExpression>
#include <QToolButton>

#include "app/script/known_words.h"
#include "app/script/message_advice.h"
#include "app/script_fixture.h"
#include "app/window/window_fixture.h"
#include "shell/instance.h"
#include "shell/message_help.h"

namespace tq::test {
namespace {

struct ConsoleTest : WindowTest {
    QLineEdit& line = part<QLineEdit>("console line");
    QPlainTextEdit& text = part<QPlainTextEdit>("console text");

    ConsoleTest() { press(Qt::Key_K, Qt::ControlModifier); }
    void paste(const QString& lines) {
        QApplication::clipboard()->setText(lines);
        line.setFocus();
        line.paste();
        QTest::qWait(10);
    }
    /// What is said of a line, without its echo.
    std::string answer(const char* entered) {
        text.clear();
        enter(entered);
        return console_text().section('\n', 1).toStdString();
    }
    void complete(const char* typed) {
        line.clear();
        QTest::keyClicks(&line, typed);
        QTest::keyClick(&line, Qt::Key_Tab);
    }
};

TEST_F(ConsoleTest, PastedLinesActOneByOne) {
    QTest::keyClicks(&line, "track_add ");
    paste("a\r\n\n  # of no effect\ntrack_add b\n.tempo 90\n.wait 60\ngetdirty");
    ASSERT_EQ(box.tracks.size(), 2u);
    EXPECT_EQ(box.tracks[0]->name, "a");
    EXPECT_EQ(box.tracks[1]->name, "b");
    EXPECT_EQ(itm_gettempo(*box.transport), 90);
    EXPECT_EQ(console_text().toStdString(),
              "> track_add a\n> # of no effect\n> track_add b\n> .tempo 90\n> .wait 60");
    EXPECT_EQ(line.text(), "");
    ASSERT_TRUE(QTest::qWaitFor([&] { return console_text().endsWith("> getdirty\ndirty 1"); }));
}

TEST_F(ConsoleTest, DriverLinesAreDoneAndFaultsAreSaid) {
    EXPECT_EQ(answer(".command new_track"), "");
    EXPECT_EQ(box.tracks.size(), 1u);
    EXPECT_NE(answer(".show parts").find("part 4 "), std::string::npos) << console_text().toStdString();
    EXPECT_EQ(answer(".tempoo 90"), "error: no such line: .tempoo\ndid you mean \".tempo\"?");
    EXPECT_EQ(answer(".tempo fast").find("error: "), 0u);
    EXPECT_NE(answer(".command select_al").find("did you mean \"select_all\"?"), std::string::npos);
    EXPECT_EQ(answer(".replay"), "error: only journals have the line .replay");
    session.send("write " + state.file("after.json"));
    EXPECT_TRUE(std::filesystem::exists(state.file("after.json"))) << "nothing is taken for recorded";
    EXPECT_EQ(answer(".quit"), "");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ConsoleTest, QuietLinesAreCountedAndTheirMistakesTold) {
    QString lines = ".quiet on\n\ntrack_add A\n";
    for (int i = 0; i < 500; ++i) lines += "event start " + QString::number(i) + "b <note> 60 90 </note>\n";
    paste(lines + "event_delete 1 777 2\nevnt\n.tempoo 9\n.replay\n.quiet off\n.show cursor");
    ASSERT_TRUE(QTest::qWaitFor([&] { return console_text().endsWith("\ncursor -1"); }));
    static const QRegularExpression steps("steps \\d+");  // as many bursts as it takes
    EXPECT_EQ(console_text().section("\n> .show", 0, 0).replace(steps, "steps N").toStdString(),
              "> .quiet on\n"
              "quiet lines 504 events 498 steps N mistakes 4\n"
              "quiet console:504: event_delete: no event with id 777\n"
              "quiet console:505: doesn't understand \"evnt\"\n"
              "quiet console:506: no such line: .tempoo\n"
              "quiet console:507: only journals have the line .replay");
    EXPECT_EQ(answer("event_delete 3 777"), "error tq.sorvo: event_delete: no event with id 777");
    EXPECT_EQ(box.tracks[0]->events.size(), 497u);
}

TEST_F(ConsoleTest, ScriptsRunBesideWhatIsEntered) {
    const std::string slow = state.file_with("slow.txt", "track_add slow\n.wait 60000\ntrack_add late"),
                      quick = state.file_with("quick.txt",
                                              ".quiet on\ntrack_add quick\n.wait 30\nnonsense\ntrack_add B"),
                      bad = state.file_with("bad.txt", "\nnonsense\n.replay\ntrack_add never");
    const auto names = [&] {
        std::string all;
        for (const TrackRef& track : box.tracks) all += track->name + " ";
        return all;
    };
    enter((".run " + slow).c_str());
    enter("track_add mine");
    EXPECT_EQ(names(), "slow mine ") << "the script waits, and the window does not";
    EXPECT_EQ(console_text().toStdString(), "> .run " + slow + "\n> track_add mine");
    EXPECT_EQ(answer((".run " + state.file("none.txt")).c_str()).find("error: could not read"), 0u);
    EXPECT_EQ(answer(".stop"), "script " + slow + " stopped " + slow + ":2");
    EXPECT_EQ(answer(".stop"), "");

    enter((".run " + slow).c_str());
    EXPECT_EQ(answer((".run " + quick).c_str()), "script " + slow + " stopped " + slow + ":2")
        << "one takes the other's place";
    ASSERT_TRUE(QTest::qWaitFor([&] { return console_text().endsWith("done"); }));
    EXPECT_EQ(names(), "slow mine slow quick B ");
    EXPECT_TRUE(console_text().contains(QString::fromStdString(
        "quiet lines 4 events 0 steps 2 mistakes 1\nquiet " + quick + ":4: doesn't understand \"nonsense\"")))
        << console_text().toStdString();

    EXPECT_EQ(answer((".run " + bad).c_str()),
              "error tq.sorvo: doesn't understand \"nonsense\"\n  at " + bad + ":2\nerror: " + bad +
                  ":3: only journals have the line .replay\nscript " + bad + " stopped " + bad + ":3");

    answer_file_dialog(QString::fromStdString(slow));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(console_text().endsWith(QString::fromStdString("> .run " + slow)));
    press(Qt::Key_Escape);
    EXPECT_TRUE(console_text().endsWith(QString::fromStdString("stopped " + slow + ":2")));
    window.activateWindow();  // the dialog was
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    enter(".wait 60000");
    enter("track_add forgotten");
    press(Qt::Key_Period, Qt::ControlModifier);
    enter("track_add last");
    EXPECT_EQ(names(), "slow mine slow quick B slow last ") << "what waits is forgotten";
}

TEST_F(ConsoleTest, LongScriptsLetTheWindowLive) {
    std::string long_script = ".quiet on\n";
    for (int i = 0; i < 20000; ++i)
        long_script += "event start " + std::to_string(i) + " <note> 60 90 </note>\n";
    const std::string file = state.file_with("long.txt", long_script);
    int turns = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [&turns] { ++turns; });
    other.start(0);
    enter((".run " + file).c_str());
    ASSERT_TRUE(QTest::qWaitFor([&] { return console_text().endsWith("done"); }, 60000));
    EXPECT_GT(turns, 3);
    EXPECT_TRUE(console_text().contains("quiet lines 20000 events 20000 "));
}

TEST_F(ConsoleTest, DialogsOfOthersAreNoneOfItsBusiness) {
    session.call(CommandCall{"new_track"});
    enter((".answer " + state.file("a.json")).c_str());
    text.clear();
    session.send("write");
    EXPECT_EQ(console_text(), "");
    EXPECT_TRUE(std::filesystem::exists(state.file("a.json")));
}

TEST_F(ConsoleTest, SaysWhatWasMeantAndWhatDidNothing) {
    EXPECT_EQ(answer("evnt start 0"), "error tq.sorvo: doesn't understand \"evnt\"\ndid you mean \"event\"?");
    EXPECT_EQ(answer("snpatime 1").substr(0, 24), "error tq.sorvo: doesn't ");
    EXPECT_TRUE(console_text().endsWith("did you mean \"snaptime\"?"));
    EXPECT_EQ(answer("xyzzyxyzzy"), "error tq.sorvo: doesn't understand \"xyzzyxyzzy\"");
    EXPECT_EQ(answer("0"),
              "\"0\" was taken for \"int 0\": 1 and more plays, 0 stops, less than 0 does nothing");
    EXPECT_NE(answer("1 2").find("a message begins with its name"), std::string::npos);
    EXPECT_EQ(answer("int 0"), "");
    EXPECT_EQ(answer("track_mute 1"), "there is no track yet: \"track_add\" makes one");
    EXPECT_EQ(answer("event start 0 <note> 60 90 </note>"), "");
    EXPECT_EQ(answer("event strat 5 <note> 60 90 </note>"), "passed over: strat 5");
    EXPECT_EQ(answer("event <buffer> tone </buffer>"),
              "there is no sound \"tone\", and the event has none: \".buffer tone FILE\" makes one");
    EXPECT_NE(answer("event <note> 60 90 start 100").find("\"<note>\" has no \"</note>\""),
              std::string::npos);
    EXPECT_EQ(answer("track_active 3"), "there is no track 3: the last one is 0");
    EXPECT_EQ(answer("track_visible 4 1"), "there is no track 4: the last one is 0");
    EXPECT_EQ(answer("track_mute 1"), "");
    EXPECT_EQ(answer("track_active 0"), "");
    EXPECT_EQ(answer("event id 99 start 5"), "error tq.sorvo: no event with id 99 ");
    EXPECT_EQ(answer("track_delete 7"), "error tq.sorvo: deletetrack: track number 7 does not exist");
}

TEST_F(ConsoleTest, TabCompletesAndLists) {
    complete("track_bpf_ad");
    EXPECT_EQ(line.text(), "track_bpf_add ");
    complete("zoom_t");
    EXPECT_EQ(line.text(), "zoom_to_selection ");
    complete(".tem");
    EXPECT_EQ(line.text(), ".tempo ");
    complete("getsnapt");
    EXPECT_EQ(line.text(), "getsnaptime ");
    complete("event start 0 <no");
    EXPECT_EQ(line.text(), "event start 0 <note> ");
    complete(".command zoom_out_");
    EXPECT_EQ(line.text(), ".command zoom_out_all ");
    text.clear();
    complete("undor");
    EXPECT_EQ(line.text(), "undoredo");
    QTest::keyClick(&line, Qt::Key_Tab);
    EXPECT_EQ(console_text(), "undoredo undoredo_clear undoredo_dump");
    complete("nothing_like_it");
    EXPECT_EQ(line.text(), "nothing_like_it");
    EXPECT_TRUE(line.hasFocus());
    EXPECT_TRUE(completions(".repl").empty()) << "not to be typed";
}

TEST_F(ConsoleTest, HelpTellsOfEveryName) {
    EXPECT_NE(answer("help event").find("<note> PITCH [VELOCITY] </note>"), std::string::npos);
    EXPECT_EQ(answer("help .wheel"), ".wheel X, Y, DX, DY");
    EXPECT_EQ(answer("help snaptime"),
              "snaptime 0|1: Snap Time; to begin with 0\n.command snaptime: Time Snap");
    EXPECT_NE(answer("help trak_add").find("did you mean \"track_add\"?"), std::string::npos);
    EXPECT_NE(answer("help").find("track_parameter_add"), std::string::npos);
    EXPECT_TRUE(box.tracks.empty());
    for (const Names& names : {message_names(), driver_line_names(), command_names()})
        for (const std::string& name : names) {
            const Names help = help_on(name);
            EXPECT_FALSE(help.empty() || help[0].starts_with("nothing is called")) << name;
        }
    for (const MessageHelp& row : message_help())
        EXPECT_TRUE(prseq_class().find_method(gensym(row.name))) << row.name << " is no message any more";
}

TEST_F(ConsoleTest, WhatWasEnteredIsThereNextTime) {
    enter("track_add first");
    enter("track_add second");
    enter("track_add first");
    QTest::keyClicks(&line, "half");
    press(Qt::Key_Up);
    EXPECT_EQ(line.text(), "track_add first");
    press(Qt::Key_Down);
    EXPECT_EQ(line.text(), "half");
    MainWindow next{Loudspeaker{nullptr, "not in a test"}};
    auto& next_line = *next.findChild<QLineEdit*>("console line");
    Lines recalled;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&next_line, Qt::Key_Up);
        recalled.push_back(next_line.text().toStdString());
    }
    EXPECT_EQ(recalled,
              Lines({"track_add first", "track_add second", "track_add second", "track_add second"}));
    QString many;
    for (int i = 0; i < 600; ++i) many += "# " + QString::number(i) + "\n";
    paste(many);
    EXPECT_EQ(lines_of(text_of_file((state.path / "sorvo" / "console").string())).size(), 500u);
}

TEST_F(ConsoleTest, OutletsShowWhenTheyAreWantedAndNeverTooMuch) {
    enter("track_dump");
    QTest::qWait(60);
    EXPECT_FALSE(console_text().contains("out2"));
    part<QToolButton>("console filter").menu()->actions().at(2)->trigger();
    enter("track_dump");
    ASSERT_TRUE(QTest::qWaitFor([&] { return console_text().contains("out2 tracks done"); }));
    EXPECT_FALSE(console_text().contains("out3"));
    for (int i = 0; i < 3000; ++i) session.send("track_dump");
    QTest::qWait(60);
    EXPECT_EQ(text.blockCount(), 5000);
}

TEST_F(ConsoleTest, ItsTextIsCopiedAndItsKeysAreItsOwn) {
    window.activateWindow();  // the platform of the tests does not do so by itself
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    session.send("event start 0 <note> 60 90 </note>");
    session.call(CommandCall{"select_all"});
    session.call(CommandCall{"copy"});
    answer("track_mute 9 1");
    const std::string before = document_of(session);
    text.setFocus();
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QApplication::clipboard()->text().contains("there is no track 9"));
    for (QWidget* widget : {static_cast<QWidget*>(&text), static_cast<QWidget*>(&line)})
        for (const Qt::Key key : {Qt::Key_X, Qt::Key_V, Qt::Key_D, Qt::Key_Z}) {
            widget->setFocus();
            QTest::keyClick(widget, key, Qt::ControlModifier);
            EXPECT_EQ(document_of(session), before) << key;
        }
    line.clear();
    text.setFocus();
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Escape, Qt::Key_Return}) QTest::keyClick(&text, key);
    QTest::keyClicks(&text, "2");
    EXPECT_TRUE(line.hasFocus()) << "what is typed goes to the line";
    QTest::keyClicks(&line, " x");
    EXPECT_EQ(line.text(), "2 x");
    EXPECT_FALSE(box.playing);
    EXPECT_EQ(document_of(session), before);
}

}  // namespace
}  // namespace tq::test
