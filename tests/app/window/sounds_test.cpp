// Sounds that come into the window: dropped, looked for, saved with the document, brought back.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

#include <cmath>

#include "app/journal/journalled.h"
#include "app/window/window_fixture.h"
#include "host/files.h"
#include "model/events.h"
#include "sounds.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;

/// Drops files on a point of a window, as a file manager does.
void drop(MainWindow& window, QPoint at, const std::vector<std::string>& files) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& file : files) urls << QUrl::fromLocalFile(QString::fromStdString(file));
    data.setUrls(urls);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &dropped);
}

/// A point of the canvas, in the window.
QPoint on_canvas(MainWindow& window, double right, double down) {
    const Rect& canvas = window.session().box().layout[Part::MainDisplay];
    return window.box().mapTo(&window, QPointF(canvas.x + right, canvas.y + down).toPoint());
}

struct WindowSounds : WindowTest {
    WindowSounds() {
        window.files().begin_by_hand();
        window.files().ask_before_losing();
        for (const char* name : {"lib", "other", "song", "moved"}) fs::create_directory(folder.path / name);
        write_silence(file("lib/kick.wav"), 400);
        write_silence(file("lib/SNARE.WAV"), 250);
        write_silence(file("other/kick.wav"), 123);
        folder.file_with("lib/notes.txt", "no sound");
        folder.file_with("lib/broken.ogg", "no sound");
    }
    std::string file(const std::string& name) const { return folder.file(name); }
    void drop_at(QPoint at, std::vector<std::string> names) {
        for (std::string& name : names) name = file(name);
        drop(window, at, names);
    }
    void choose(const char* menu, const char* text) {
        QMetaObject::invokeMethod(&part<QMenu>(menu), "aboutToShow");
        for (QAction* action : part<QMenu>(menu).actions())
            if (action->text().section('\t', 0, 0) == text) return action->trigger();
        ADD_FAILURE() << text;
    }
    /// The dialog must not find the file that it proposes: it would ask whether to write over that.
    void save_as(const std::string& name) {
        if (!box.info.filename.empty()) fs::remove(path_in_folder(box.info.folder, box.info.filename));
        answer_file_dialog(QString::fromStdString(file(name)));
        choose("File", "Save As...");
    }
    size_t count() { return box.tracks.empty() ? 0 : box.tracks[0]->events.size(); }
    const Event& event(size_t i) { return *box.tracks.at(0)->events.at(i); }
    std::string name_of(size_t i) { return event(i).link().name.text(); }
    std::string path_of(const std::string& name) {
        const Buffer* buffer = buffer_named(session.host(), gensym(name));
        return buffer ? buffer->path() : "";
    }

    TemporaryFolder folder;
};

TEST_F(WindowSounds, ASoundIsDroppedWhereThePencilWouldDraw) {
    for (const char* ruler : {"", "time_display_type 0", "snaptime 0", "snappitch 0"}) {
        session.send(ruler);
        session.call(TempoCall{130});  // its beats are at no whole ms
        const QPoint at = on_canvas(window, 333, 77);
        session.call(CommandCall{"insert_mode"});
        QTest::mouseClick(&box_widget(), Qt::LeftButton, {}, box_widget().mapFrom(&window, at));
        ASSERT_EQ(count(), 1u);
        const double start = event(0).start, pitch = event(0).pitch;
        session.send("undo");
        drop_at(at, {"lib/kick.wav"});
        ASSERT_EQ(count(), 1u) << ruler;
        EXPECT_NEAR(event(0).start, start, 1e-3) << ruler;
        EXPECT_NEAR(event(0).pitch, pitch, 1e-4) << ruler;
        EXPECT_EQ(event(0).duration, 400);
        EXPECT_EQ(event(0).velocity, 127);
        EXPECT_EQ(event(0).link().length, 400);
        session.send("undo");
    }
    session.send("track_add hidden");
    session.send("track_visible 0");
    drop_at(on_canvas(window, 333, 77), {"lib/kick.wav"});
    EXPECT_EQ(box.tracks.at(1)->events.size(), 0u) << "nobody would see it";
    EXPECT_TRUE(console_text().contains("hidden"));
}

TEST_F(WindowSounds, SeveralComeOneBehindTheOtherEachAStep) {
    drop_at(on_canvas(window, 100, 50),
            {"lib/notes.txt", "lib/broken.ogg", "lib/SNARE.WAV", "lib/kick.wav", "other/kick.wav"});
    ASSERT_EQ(count(), 3u);
    EXPECT_EQ(box.tracks.size(), 1u);
    EXPECT_EQ(box.tracks[0]->name, "SNARE") << "called after the first that is one";
    EXPECT_EQ((std::vector{name_of(0), name_of(1), name_of(2)}),
              (std::vector<std::string>{"SNARE", "kick", "kick-2"}));
    EXPECT_EQ(event(1).start, event(0).start + 250);
    EXPECT_EQ(event(2).start, event(1).start + 400);
    EXPECT_EQ(event(2).duration, 123);
    for (const char* name : {"notes.txt", "broken.ogg"}) EXPECT_TRUE(console_text().contains(name)) << name;
    for (size_t left : {2u, 1u, 0u}) {
        session.send("undo");
        EXPECT_EQ(count(), left) << "each is a step";
    }
    session.send("event start 9000");  // its burst is open
    drop_at(on_canvas(window, 100, 50), {"other/kick.wav"});
    EXPECT_EQ(name_of(0), "kick-2") << "it has its name already";
    EXPECT_EQ(box.tracks.size(), 1u) << "on the active track";
    session.send("event start 9500");
    for (size_t left : {2u, 1u, 0u}) {
        session.send("undo");
        EXPECT_EQ(count(), left) << "bursts end before and behind it";
    }
}

TEST_F(WindowSounds, ElsewhereAndByTheMenuTheyComeAtThePosition) {
    session.send("position 1000");
    drop_at(window.rect().bottomLeft() + QPoint(5, -5), {"lib/kick.wav"});
    ASSERT_EQ(count(), 1u);
    EXPECT_EQ(event(0).start, 1000);
    EXPECT_EQ(event(0).pitch, 60);
    session.send("event id 1 <note> 67 100 </note>");
    session.send("event_select 1");
    session.send("position 2000");
    answer_file_dialog(
        QString("\"%1\" \"%2\"").arg(file("lib/kick.wav").c_str(), file("lib/SNARE.WAV").c_str()));
    choose("File", "Add Sound...");
    ASSERT_EQ(count(), 3u);
    EXPECT_EQ(event(1).start, 2000);
    EXPECT_EQ(event(1).pitch, 67) << "as high as what is selected";
    EXPECT_EQ(event(2).start, 2000 + event(1).duration);

    save_as("song/mine.json");
    MainWindow next({nullptr, "not in a test"});
    drop(next, {300, 300}, {file("song/mine.json")});
    EXPECT_EQ(next.session().box().info.filename, "mine.json") << "a single document is opened";
}

TEST_F(WindowSounds, ASavedDocumentFindsThemAgain) {
    drop_at(on_canvas(window, 100, 50), {"lib/kick.wav", "lib/SNARE.WAV"});
    const QString quoted = QString::fromStdString(file("moved/by_line.json"));
    enter(("write \"" + quoted + "\"").toUtf8().constData());
    EXPECT_TRUE(fs::exists(file("moved/by_line.json")));
    EXPECT_FALSE(fs::exists(file("moved/kick.wav"))) << "a line is not a hand";
    save_as("song/mine.json");
    fs::rename(file("lib"), file("away"));
    {
        MainWindow next({nullptr, "not in a test"});
        ASSERT_TRUE(next.files().open(file("song/mine.json")));
        for (const char* name : {"kick", "SNARE"}) {
            const Buffer* buffer = buffer_named(next.session().host(), gensym(name));
            ASSERT_TRUE(buffer) << name;
            EXPECT_EQ(buffer->path(), file(std::string("song/") + name + ".wav"));
        }
        EXPECT_EQ(next.session().box().tracks.at(0)->events.at(0)->link().length, 400);
    }
    fs::rename(file("away"), file("lib"));
    write_silence(file("moved/SNARE.wav"), 9);
    fs::create_directory(file("moved/kick.wav"));
    save_as("moved/mine.json");
    EXPECT_FALSE(prseq_getdirtyflag(box)) << "what cannot be copied leaves the document saved";
    EXPECT_TRUE(console_text().contains("could not be copied"));
    EXPECT_TRUE(console_text().contains("another sound")) << console_text().toStdString();
    EXPECT_EQ(path_of("SNARE"), file("lib/SNARE.WAV")) << "what is heard stays";
    session.send("event start 0");
    answer_question(QMessageBox::Save);
    EXPECT_FALSE(window.close()) << "what was told can be read";
    EXPECT_TRUE(window.close());
}

TEST_F(WindowSounds, AKilledSessionComesBackWithThem) {
    write_silence(file("lib/808.wav"), 80);
    fs::create_directory(file("with blanks"));
    fs::copy_file(file("lib/kick.wav"), file("with blanks/a \"kick\".wav"));
    {
        MainWindow killed({nullptr, "not in a test"});
        killed.files().begin_journal();
        killed.show();
        drop(killed, on_canvas(killed, 100, 50), {file("lib/808.wav"), file("with blanks/a \"kick\".wav")});
    }
    Recovery recovery = Journalled::recovered(find_dead_sessions().sessions.at(0).folder);
    MainWindow back({nullptr, "not in a test"}, std::move(recovery.session));
    const EventList& events = back.session().box().tracks.at(0)->events;
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events.at(0)->link().name, gensym("808"));
    EXPECT_EQ(events.at(1)->link().name, gensym("a \"kick\""));
    for (size_t i : {0u, 1u})
        EXPECT_TRUE(fs::exists(buffer_named(back.session().host(), events.at(i)->link().name)->path()));
    back.session().send("undo");
    back.session().send("undo");
    EXPECT_EQ(events.size(), 0u) << "each is a step again";
    EXPECT_EQ(back.session().box().tracks.size(), 1u);
    back.session().send("redo");
    write_silence(file("song/808.wav"), 30);
    ASSERT_TRUE(
        back.files().open(folder.file_with("song/its.json", R"({"tq.sorvo":"","header":{"fileversion":100},
        "tracks":[{"name":"A","events":[{"start":0,"duration":9,"pitch":60.0,"buffer":"808"}]}]})")));
    EXPECT_EQ(back.session().box().tracks.at(0)->events.at(0)->link().length, 30) << "not that of the other";
}

}  // namespace
}  // namespace tq::test
