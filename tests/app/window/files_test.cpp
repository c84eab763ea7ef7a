// The window's menus, and what becomes of documents: saved, reverted, exported, closed.
#include <sndfile.h>

#include <QAction>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>

#include <filesystem>

#include "app/midi/files.h"
#include "app/midi/reader.h"
#include "app/patch/recent_files.h"
#include "app/window/window_fixture.h"
#include "host/files.h"
#include "temporary_folder.h"

namespace tq::test {
namespace {

struct WindowFiles : WindowTest {
    WindowFiles() { window.files().ask_before_losing(); }

    /// The item of a menu, whose menus were opened one after the other.
    QAction* item(const QStringList& path) {
        QList<QAction*> actions = part<QMenuBar>().actions();
        QAction* found = nullptr;
        for (const QString& text : path) {
            found = nullptr;
            for (QAction* action : actions)
                if (action->text().section('\t', 0, 0).remove('&') == text) found = action;
            if (!found || !found->menu()) break;
            QMetaObject::invokeMethod(found->menu(), "aboutToShow");
            actions = found->menu()->actions();
        }
        EXPECT_TRUE(found) << path.join(" > ").toStdString();
        static QAction none;
        return found ? found : &none;
    }
    void choose(const QStringList& path) {
        if (QAction* action = item(path); action->isEnabled()) action->trigger();
    }
    std::string file(const char* name) const { return folder.file(name); }
    static bool exists(const std::string& path) { return std::filesystem::exists(path); }

    TemporaryFolder folder;
};

TEST_F(WindowFiles, AWindowBeginsWithALoopOfFourBars) {
    window.files().begin_journal();
    window.files().begin_by_hand();
    EXPECT_EQ(box.cycle.end, 8000) << "at 120 beats a minute";
    EXPECT_FALSE(prseq_getdirtyflag(box));
    EXPECT_FALSE(window.files().has_previous());
}

TEST_F(WindowFiles, MenusShowAndDoWhatCommandsDo) {
    EXPECT_FALSE(item({"File", "Export MIDI File..."})->isEnabled()) << "there is nothing to write";
    choose({"Track", "New Track"});
    ASSERT_EQ(box.tracks.size(), 1u);
    EXPECT_TRUE(item({"View", "Key Display"})->isChecked());
    choose({"View", "Key Display"});
    EXPECT_FALSE(item({"View", "Key Display"})->isChecked());
    const QString undo = QString::fromStdString(command_row(Command::Undo).text(box));
    EXPECT_FALSE(item({"Edit", undo})->text().section('\t', 1).isEmpty()) << "its key is shown";
    choose({"Track", "Sound", "Strings", "Cello"});
    EXPECT_EQ(box.tracks[0]->destination.text(), "gm:42");
    EXPECT_TRUE(item({"Track", "Sound", "Strings", "Cello"})->isChecked());
    session.send("track_destination mine");
    EXPECT_TRUE(item({"Track", "Sound", "mine"})->isChecked()) << "a receiver of one's own stands there, too";
    choose({"Track", "Sound", "None of its own (outlet 0)"});
    EXPECT_EQ(box.tracks[0]->destination, Symbol());
    choose({"Edit", "Undo Change Track Destination"});
    EXPECT_EQ(box.tracks[0]->destination.text(), "mine");
    choose({"Grid", "Snap to", "1/8 T (3 to a beat)"});
    EXPECT_EQ(box.snap_division, 3);
    EXPECT_TRUE(item({"Grid", "Snap to", "1/8 T (3 to a beat)"})->isChecked());
    session.send("track_add Second");
    choose({"Track", "Track 1"});
    EXPECT_EQ(box.activetrack, 0);
}

TEST_F(WindowFiles, TheHistoryIsAListToBeClicked) {
    for (const char* name : {"one", "two", "three"}) session.send(std::string("track_add ") + name);
    choose({"Edit", "History"});
    auto& list = part<QListView>();
    EXPECT_EQ(list.model()->rowCount(), 4);
    EXPECT_EQ(list.currentIndex().row(), 3);
    const auto click = [&](int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(row, 0)).center());
    };
    click(1);
    EXPECT_EQ(box.tracks.size(), 1u);
    EXPECT_EQ(list.currentIndex().row(), 1);
    click(3);
    EXPECT_EQ(box.tracks.size(), 3u);
    click(0);
    EXPECT_EQ(box.tracks.size(), 0u);
    session.send("track_add four");
    window.refresh();
    EXPECT_EQ(list.model()->rowCount(), 2);
}

TEST_F(WindowFiles, NamesGetTheirSuffixAndRevertGoesBack) {
    session.send("track_add mine");
    answer_file_dialog(QString::fromStdString(file("song")));
    choose({"File", "Save As..."});
    EXPECT_TRUE(exists(file("song.sorvo")));
    session.send("track_add more");
    answer_question(QMessageBox::No);
    choose({"File", "Revert to Saved"});
    EXPECT_EQ(box.tracks.size(), 2u);
    answer_question(QMessageBox::Yes);
    choose({"File", "Revert to Saved"});
    EXPECT_EQ(box.tracks.size(), 1u);
}

TEST_F(WindowFiles, WhatIsNotSavedIsAskedAbout) {
    session.send("track_add mine");
    answer_question(QMessageBox::Cancel);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    answer_question(QMessageBox::Save);
    QTimer::singleShot(100, [] { answer_file_dialog(""); });
    EXPECT_FALSE(window.close()) << "no name was given, so nothing is saved";
    const std::string other =
        folder.file_with("other.json", text_of_file(std::string(SORVO_DEMO) + "/first-steps.json"));
    remember_file(other);
    answer_question(QMessageBox::Cancel);
    choose({"File", "Open Recent", QString::fromStdString(other)});
    EXPECT_EQ(box.tracks[0]->name, "mine");
    answer_question(QMessageBox::Save);
    QTimer::singleShot(100, [this] { answer_file_dialog(QString::fromStdString(file("kept.json"))); });
    choose({"File", "Open Recent", QString::fromStdString(other)});
    EXPECT_TRUE(exists(file("kept.json")));
    EXPECT_NE(box.tracks[0]->name, "mine");
    session.send("track_add more");
    answer_question(QMessageBox::Discard);
    EXPECT_TRUE(window.close());
}

TEST_F(WindowFiles, ExportsWriteWhatIsHeardAndSeen) {
    session.send("track_add mine");
    session.send("event start 100 duration 400 <note> 64 100 </note>");
    QTest::qWait(100);
    const std::pair<const char*, const char*> exports[] = {{"Export Sound...", "a.flac"},
                                                           {"Export Sound...", "a"},
                                                           {"Export MIDI File...", "a.mid"},
                                                           {"Export Picture...", "a.png"}};
    for (const auto& [text, name] : exports) {
        answer_file_dialog(QString::fromStdString(file(name)));
        choose({"File", text});
    }
    SF_INFO info{};
    for (const char* name : {"a.flac", "a.wav"}) {
        SNDFILE* sound = sf_open(file(name).c_str(), SFM_READ, &info);
        ASSERT_TRUE(sound) << name;
        EXPECT_GE(info.frames, 44100 / 2);
        sf_close(sound);
    }
    const MidiSong song = read_midi_file(read_bytes(file("a.mid")));
    ASSERT_EQ(song.tracks.size(), 1u);
    EXPECT_EQ(song.tracks[0].notes.at(0).pitch, 64);
    EXPECT_EQ(QImage(QString::fromStdString(file("a.png"))).width(), box_widget().width());
    EXPECT_FALSE(box.playing) << "a copy was played";
    EXPECT_TRUE(prseq_getdirtyflag(box));
}

TEST_F(WindowFiles, AnExportThatIsCancelledWritesNothing) {
    session.send("track_add mine");
    session.send("event start 0 duration 3000000 <note> 64 100 </note>");
    QTest::qWait(100);
    answer_file_dialog(QString::fromStdString(file("long.wav")));
    QTimer cancel;
    QObject::connect(&cancel, &QTimer::timeout, [this] {
        if (auto* dialog = window.findChild<QProgressDialog*>("export progress")) dialog->cancel();
    });
    cancel.start(20);
    choose({"File", "Export Sound..."});
    EXPECT_FALSE(exists(file("long.wav")));
}

TEST_F(WindowFiles, AMidiFileKeepsItsNameAndIsRemembered) {
    const std::string song = folder.file_with(
        "a song.mid", text_of(midi_file(1, 480, {"00 90 3c 40 83 60 80 3c 00 00 ff 2f 00"})));
    ASSERT_TRUE(window.files().open(song));
    EXPECT_EQ(box.info.title, "a song");
    EXPECT_TRUE(window.windowTitle().startsWith("a song"));
    EXPECT_EQ(recent_files().at(0), song);
    EXPECT_TRUE(item({"File", "Open Recent", QString::fromStdString(song)})->isEnabled());
    QTimer::singleShot(50, [this] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->findChild<QLineEdit*>("fileNameEdit")->text(), "a song.sorvo");
        dialog->reject();
    });
    choose({"File", "Save As..."});
}

}  // namespace
}  // namespace tq::test
