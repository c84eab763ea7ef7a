// What the window offers of earlier sessions and documents.
#include <fmt/format.h>

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "app/journal/journalled.h"
#include "app/journal/kept_work.h"
#include "app/patch/kept_copies.h"
#include "app/patch/recent_files.h"
#include "app/program.h"
#include "app/window/kept_work_dialog.h"
#include "app/window/main_window.h"
#include "app/window/time_words.h"
#include "file/random_document.h"
#include "host/state_folder.h"

namespace tq::test {
namespace {

namespace fs = std::filesystem;

struct EarlierSessions : Journalled {
    /// A session that ended, after a track of this name was made, so many minutes ago.
    static void dead_session(const std::string& name, int minutes) {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        const fs::path path = journal->folder().journal_path();
        session.send("track_add " + name);
        session.send("event start 1000 duration 500 <note> 60 90 </note>");
        journal.reset();
        age(path, std::chrono::minutes(minutes));
    }
    static fs::path copy(const std::string& document, std::chrono::minutes old) {
        std::string fault;
        const std::optional<std::string> path = keep_copy(document, good_document, fault);
        EXPECT_TRUE(path) << fault;
        age(*path, old);
        return *path;
    }
    static void age(const fs::path& file, std::chrono::minutes old) {
        fs::last_write_time(file, fs::file_time_type::clock::now() - old);
    }
    static size_t waiting() { return find_kept_work().work.size(); }
};

struct KeptWorkList : EarlierSessions {
    /// What a person does in the list when it is there.
    template <typename What>
    void in_the_list(What what) {
        QTimer::singleShot(30, qApp, [this, what] {
            auto* dialog = dynamic_cast<KeptWorkDialog*>(QApplication::activeModalWidget());
            if (!dialog) return in_the_list(what);
            list = dialog->findChild<QListWidget*>("work");
            what(*dialog);
        });
    }
    static void press(const QWidget& dialog, const char* text) {
        for (QPushButton* button : dialog.findChildren<QPushButton*>())
            if (button->text() == text) return button->click();
        FAIL() << text;
    }
    static void answer_question(QMessageBox::StandardButton answer, QString& asked) {
        QTimer::singleShot(30, qApp, [answer, &asked] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return answer_question(answer, asked);
            asked = box->text();
            box->button(answer)->click();
        });
    }
    QStringList rows() const {
        QStringList rows;
        for (int row = 0; row < list->count(); ++row) rows << list->item(row)->text();
        return rows;
    }
    MainWindow* window_beside(const MainWindow& window) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* other = dynamic_cast<MainWindow*>(widget);
                other && other != &window && other->isVisible())
                return other;
        return nullptr;
    }
    /// Chooses a row of the window's list.
    void bring_back(MainWindow& window, int row) {
        in_the_list([&, row](QDialog& dialog) {
            list->setCurrentRow(row);
            press(dialog, "Bring Back");
        });
        window.files().choose_unsaved_work();
    }
    void end(MainWindow& window) {
        window.close();
        QApplication::sendPostedEvents(&window, QEvent::DeferredDelete);
    }
    QListWidget* list = nullptr;
};

TEST_F(KeptWorkList, tellsWhatThereIsOfEachAndDeletesOnlyWhatItIsToldTo) {
    dead_session("one", 120);
    dead_session("two", 3);
    copy("/somewhere/song.sorvo", std::chrono::minutes(30));
    QString question;
    in_the_list([&](QDialog& dialog) {
        EXPECT_EQ(rows()[0], "Never saved\nSession, 3 minutes ago\nLooking at it…");
        EXPECT_TRUE(rows()[1].startsWith("song.json\nCopy, 30 minutes ago")) << rows()[1].toStdString();
        EXPECT_TRUE(QTest::qWaitFor([&] { return rows().filter("Looking").isEmpty(); }, 60000));
        EXPECT_TRUE(rows()[0].endsWith("\n1 track, 1 event, 0:02, 2 edits that can be undone"))
            << rows()[0].toStdString();
        EXPECT_TRUE(rows()[1].endsWith("\n2 tracks, 2 events, 0:05")) << rows()[1].toStdString();
        const QSize size = list->iconSize();
        EXPECT_NE(list->item(0)->icon().pixmap(size).toImage(), list->item(1)->icon().pixmap(size).toImage());
        answer_question(QMessageBox::No, question);
        press(dialog, "Delete...");
        EXPECT_EQ(list->count(), 3);
        answer_question(QMessageBox::Yes, question);
        press(dialog, "Delete...");
        EXPECT_EQ(list->count(), 2);
        press(dialog, "Later");
    });
    EXPECT_FALSE(choose_kept_work(find_kept_work().work, nullptr));
    EXPECT_TRUE(question.startsWith("Delete the session \"Never saved\", 3 minutes ago?"))
        << question.toStdString();
    EXPECT_EQ(waiting(), 2u) << "having looked took nothing away";
    EXPECT_EQ(recovered(find_dead_sessions().sessions.at(0).folder).session->box().tracks[0]->name, "one");
}

TEST_F(KeptWorkList, bringsASessionBackWithItsHistoryInPlaceOfABlankWindow) {
    dead_session("two", 1);
    MainWindow window({nullptr, "not in a test"});
    window.files().begin_journal();
    window.show();
    bring_back(window, 0);
    EXPECT_FALSE(window.isVisible());
    MainWindow* back = window_beside(window);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->session().box().tracks[0]->name, "two");
    EXPECT_EQ(waiting(), 0u) << "it runs";
    back->session().send("undo");
    back->session().send("undo");
    EXPECT_TRUE(back->session().box().tracks.empty());
    end(*back);
    EXPECT_EQ(find_dead_sessions().sessions.size(), 0u);
}

TEST_F(KeptWorkList, bringsACopyBackAsADocumentWithoutAFile) {
    const fs::path first = copy("one.json", std::chrono::minutes(1)),
                   second = copy("two.json", std::chrono::minutes(2));
    MainWindow window({nullptr, "not in a test"});
    window.files().begin_journal();
    window.show();
    const Prseq& box = window.session().box();
    bring_back(window, 0);
    EXPECT_FALSE(window_beside(window));
    EXPECT_EQ(box.tracks.size(), 2u);
    EXPECT_TRUE(box.info.filename.empty() && prseq_getdirtyflag(box));
    EXPECT_TRUE(recent_files().empty());
    EXPECT_FALSE(fs::exists(first)) << "the journal has it now";
    window.session().send("track_add more");

    bring_back(window, 0);
    EXPECT_EQ(box.tracks.size(), 3u);
    MainWindow* back = window_beside(window);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->session().box().tracks.size(), 2u);
    EXPECT_FALSE(fs::exists(second));
    end(*back);
    window.close();
    EXPECT_EQ(waiting(), 2u) << "closed without having been saved, they are copies again";
    EXPECT_EQ(find_dead_sessions().sessions.size(), 0u);
}

TEST_F(KeptWorkList, aCopyThatCameBackComesBackAfterACrashToo) {
    copy("one.json", std::chrono::minutes(1));
    fs::path session;
    {
        MainWindow window({nullptr, "not in a test"});
        window.files().begin_journal();
        window.files().bring_back(find_kept_work().work.at(0));
        session = fs::directory_iterator(state_folder() / "sessions")->path();
        window.files().keep_journal(nullptr);
    }
    const Recovery recovery = recovered(session);
    EXPECT_EQ(recovery.session->box().tracks.size(), 2u);
    EXPECT_TRUE(recovery.session->box().info.filename.empty());
    EXPECT_TRUE(prseq_getdirtyflag(recovery.session->box()));
}

TEST_F(EarlierSessions, areListedAndWrittenByTheProgram) {
    dead_session("one", 5);
    const fs::path kept = copy("song.json", std::chrono::minutes(1));
    const fs::path session = find_dead_sessions().sessions.at(0).folder;
    const TemporaryFolder elsewhere;
    const ProgramRun listed = run_program(elsewhere, "recover --list");
    Lines lines;
    std::istringstream stream(listed.out);
    for (std::string line; std::getline(stream, line);) lines.push_back(line.substr(line.find('\t') + 1));
    EXPECT_EQ(lines, (Lines{"copy\t2\t2\t5100\t-\tsong.json\t" + kept.string(),
                            "session\t1\t1\t1500\t2\t-\t" + session.string()}))
        << listed.err;
    EXPECT_EQ(run_program(elsewhere, "recover latest.json").status, 0);
    EXPECT_NE(text_of_file(elsewhere.file("latest.json")).find("\"one\""), std::string::npos)
        << "the session, though the copy is later";
    const ProgramRun pictured = run_program(elsewhere, "recover --from '" + session.string() + "' one.png");
    EXPECT_EQ(amount_in_line(pictured.out)->edits, 2u);
    EXPECT_TRUE(text_of_file(elsewhere.file("one.png")).starts_with("\x89PNG"));
    EXPECT_EQ(run_program(elsewhere, "recover --from nowhere one.png").status, 1);
    EXPECT_EQ(waiting(), 2u);
}

TEST_F(EarlierSessions, leaveCopiesAsLongAsTheyMayBeMissed) {
    constexpr std::chrono::days old{31};
    for (int i = 0; i < 100; ++i) copy(fmt::format("old {}.json", i), old + std::chrono::minutes(i));
    EXPECT_EQ(kept_copies().size(), 100u);
    const fs::path oldest = kept_copies().back();
    copy("new.json", std::chrono::minutes(1));
    EXPECT_EQ(kept_copies().size(), 100u);
    EXPECT_FALSE(fs::exists(oldest));
    for (const fs::path& path : kept_copies()) age(path, std::chrono::days(29));
    copy("newer.json", std::chrono::minutes(1));
    EXPECT_EQ(kept_copies().size(), 101u) << "none is as old as that";
}

TEST(TimeWords, AreThoseOfPeople) {
    const auto words = [](const char* when) {
        return time_words(QDateTime::fromString(when, Qt::ISODate),
                          QDateTime::fromString("2026-03-12T14:30:00", Qt::ISODate));
    };
    EXPECT_EQ(words("2026-03-12T14:29:20"), "just now");
    EXPECT_EQ(words("2026-03-12T14:28:20"), "a minute ago");
    EXPECT_EQ(words("2026-03-12T13:31:00"), "59 minutes ago");
    EXPECT_EQ(words("2026-03-12T09:05:00"), "today at 09:05");
    EXPECT_EQ(words("2026-03-11T23:59:00"), "yesterday at 23:59");
    EXPECT_EQ(words("2026-03-06T08:00:00"), "Friday at 08:00");
    EXPECT_EQ(words("2026-03-05T08:00:00"), "5 March 2026");
    EXPECT_EQ(length_words(59600), "1:00");
    EXPECT_EQ(length_words(3723000), "1:02:03");
}

TEST_F(EarlierSessions, leaveTheirDocumentsInTheMenu) {
    MainWindow window({nullptr, "not in a test"});
    window.show();
    for (const char* name : {"a.json", "b.json"}) window.files().open(folder.file_with(name, good_document));
    std::filesystem::remove(folder.file("a.json"));
    QMenu& menu = *window.findChild<QToolButton*>("open")->menu();
    emit menu.aboutToShow();
    const QList<QAction*> rows = menu.actions().mid(2);  // after the one that brings a document back
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0]->text().toStdString(), folder.file("b.json"));
    EXPECT_TRUE(rows[0]->isEnabled());
    EXPECT_FALSE(rows[1]->isEnabled());
    window.session().send("track_add more");
    rows[0]->trigger();
    EXPECT_EQ(window.session().box().tracks.size(), 2u);
    EXPECT_FALSE(std::filesystem::is_empty(folder.path / "sorvo/kept")) << "it was not saved";
}

TEST_F(EarlierSessions, leaveADocumentThatCanBeBroughtBackWhenItWasReplaced) {
    MainWindow window({nullptr, "not in a test"});
    window.files().keep_journal(begin(window.session()));
    window.show();
    QMenu& menu = *window.findChild<QToolButton*>("open")->menu();
    const auto brings_back = [&] {
        emit menu.aboutToShow();
        return menu.actions().first()->isEnabled();
    };
    window.files().open(folder.file_with("a.json", good_document));
    EXPECT_FALSE(brings_back()) << "nothing was there before";
    window.session().send("track_add unsaved");
    const std::string before = document_of(window.session());
    window.session().send("read nothing.json");
    EXPECT_TRUE(window.session().box().tracks.empty());
    ASSERT_TRUE(brings_back());
    menu.actions().first()->trigger();
    MainWindow* back = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* other = dynamic_cast<MainWindow*>(widget); other && other != &window) back = other;
    ASSERT_TRUE(back);
    EXPECT_EQ(document_of(back->session()), before);
    EXPECT_TRUE(prseq_getdirtyflag(back->session().box()));
    back->session().send("undo");
    EXPECT_EQ(back->session().box().tracks.size(), 2u);
    window.session().send("track_add here");
    EXPECT_EQ(window.session().box().tracks.size(), 1u);
    back->close();
    QApplication::sendPostedEvents(back, QEvent::DeferredDelete);
    EXPECT_EQ(find_dead_sessions().sessions.size(), 0u) << "the journals are held, or gone";
}

}  // namespace
}  // namespace tq::test
