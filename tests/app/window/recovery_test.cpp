// What the window offers of earlier sessions and documents.
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "app/journal/journalled.h"
#include "app/patch/recent_files.h"
#include "app/window/ask_recovery.h"
#include "app/window/main_window.h"
#include "file/random_document.h"

namespace tq::test {
namespace {

struct EarlierSessions : Journalled {
    /// A session that ended after a track of this name was made.
    static void dead_session(const std::string& name) {
        Session session;
        std::unique_ptr<Journal> journal = begin(session);
        session.send("track_add " + name);
    }
    /// Presses these buttons, one for each question.
    std::optional<Recovery> answer(const QStringList& buttons) {
        asked.clear();
        QStringList left = buttons;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || left.isEmpty()) return;
            asked << box->text() + "|" + box->informativeText();
            for (QAbstractButton* button : box->buttons())
                if (button->text() == left.front()) {
                    left.removeFirst();
                    return button->click();
                }
        });
        timer.start(10);
        std::optional<Recovery> recovery = ask_for_recovery(find_dead_sessions().sessions);
        EXPECT_TRUE(left.isEmpty());
        return recovery;
    }
    QStringList asked;
};

TEST_F(EarlierSessions, comeBackOrGoOrWaitAsTheUserSays) {
    for (const char* name : {"one", "two", "three"}) dead_session(name);
    EXPECT_FALSE(answer({"Later"}));
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(find_dead_sessions().sessions.size(), 3u);
    std::optional<Recovery> recovery = answer({"Discard", "Bring Back"});
    ASSERT_TRUE(recovery);
    EXPECT_TRUE(asked[0].startsWith(
        "A session with a document that was never saved ended unexpectedly. Bring it back?|"))
        << asked[0].toStdString();
    EXPECT_TRUE(asked[0].endsWith("2 more wait.") && asked[1].endsWith("1 more wait."));
    EXPECT_EQ(recovery->session->box().tracks[0]->name, "two");
    EXPECT_EQ(find_dead_sessions().sessions.size(), 1u) << "one is gone, one is held";

    MainWindow window({nullptr, "not in a test"}, std::move(recovery->session));
    window.files().keep_journal(go_on(window.session(), *recovery));
    window.show();
    window.session().send("undo");
    EXPECT_TRUE(window.session().box().tracks.empty());
    window.close();
    EXPECT_EQ(find_dead_sessions().sessions.size(), 1u);
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
