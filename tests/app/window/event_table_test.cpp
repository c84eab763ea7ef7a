// The list of events: what it shows, what a person does in it, and that it follows the box.
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <random>

#include <fmt/format.h>

#include "app/script/show.h"
#include "app/script_fixture.h"
#include "app/window/event_columns.h"
#include "app/window/event_rows.h"
#include "app/window/window_fixture.h"
#include "model/events.h"
#include "model/tracks.h"

namespace tq::test {
namespace {

enum Column { Id, TrackName, Start, Bar, Duration, Pitch, Note, Velocity, Label, Sound };

struct EventTableTest : WindowTest {
    EventTableTest() {
        session.call(SoundCall{"kick", SoundFormat{1000, 1, 48000}, {}});
        for (const char* line :
             {"track_add Lead", "track_add Bass", "track_active 0",
              "event track 0 start 2000 duration 300 label b <note> 61.5 90 </note>",
              "event track 0 start 500 duration 100 label c <note> 72 40 </note>",
              "event track 1 start 0 duration 700 label a <note> 36 127 </note> <buffer> kick </buffer>"})
            session.send(line);
        QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        table = window.findChild<QTableView*>("event table");
        settle();
    }
    QDialog& dialog() { return part<QDialog>("event list"); }
    static void settle() { QTest::qWait(250); }
    void show_all_tracks() { part<QComboBox>("tracks").setCurrentIndex(1); }
    QString text(int row, int column) { return table->model()->index(row, column).data().toString(); }
    QStringList texts(int column) {
        QStringList all;
        for (int row = 0; row < table->model()->rowCount(); ++row) all << text(row, column);
        return all;
    }
    void click(int row, Qt::KeyboardModifiers modifiers = {}, int column = Id) {
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, middle(row, column));
    }
    QPoint middle(int row, int column = Id) {
        return table->visualRect(table->model()->index(row, column)).center();
    }
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) { table->sortByColumn(column, order); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(table, key, modifiers); }
    void type(int row, int column, const QString& typed) {
        table->setCurrentIndex(table->model()->index(row, column));
        key(Qt::Key_F2);
        auto* editor = table->viewport()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->setText(typed);
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
    }
    /// Identifiers of what is selected in the box.
    std::vector<long> selected() {
        std::vector<long> ids;
        for (const TrackRef& track : box.tracks)
            for (const Event* event : track->events.selected()) ids.push_back(event->id);
        std::ranges::sort(ids);
        return ids;
    }
    const Event& event(long id) { return *TQ_Prseq_Events_FindEventFromID(box, id); }
    bool marked(int row) { return table->model()->index(row, 0).data(Qt::UserRole).toBool(); }
    QTableView* table = nullptr;
};

using Ids = std::vector<long>;

TEST_F(EventTableTest, ShowsEventsOfTheActiveTrackOrOfAllSortedByAnyColumn) {
    EXPECT_EQ(texts(Id), (QStringList{"2", "1"})) << "the active track's, by time";
    show_all_tracks();
    QStringList rows;
    for (int column = 0; column < table->model()->columnCount(); ++column) rows << text(2, column);
    EXPECT_EQ(rows, (QStringList{"1", "Lead", "2000", "1.3.000", "300", "61.5", "C#3 +50", "90", "b", ""}));
    EXPECT_EQ(text(0, Note), "C1");
    EXPECT_EQ(text(0, Sound), "kick");
    const std::pair<Column, QStringList> orders[] = {{Id, {"1", "2", "3"}},    {TrackName, {"2", "1", "3"}},
                                                     {Start, {"3", "2", "1"}}, {Duration, {"2", "1", "3"}},
                                                     {Pitch, {"3", "1", "2"}}, {Velocity, {"2", "1", "3"}},
                                                     {Label, {"3", "1", "2"}}, {Sound, {"2", "1", "3"}}};
    for (const auto& [column, ids] : orders) {
        sort(column);
        EXPECT_EQ(texts(Id), ids) << column;
    }
    sort(Pitch, Qt::DescendingOrder);
    EXPECT_EQ(texts(Id), (QStringList{"2", "1", "3"}));
    EXPECT_EQ(part<QLabel>("counts").text(), "3 events, 0 selected");
    session.send("select_where label c");
    part<QCheckBox>("selected only").setChecked(true);
    EXPECT_EQ(texts(Id), QStringList{"2"});
}

TEST_F(EventTableTest, ClicksAndKeysSelectInTheBox) {
    show_all_tracks();  // 3 2 1
    click(1);
    EXPECT_EQ(selected(), Ids{2});
    click(2, Qt::ControlModifier);
    EXPECT_EQ(selected(), (Ids{1, 2}));
    click(1, Qt::ControlModifier);
    EXPECT_EQ(selected(), Ids{1});
    click(0);
    click(2, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (Ids{1, 2, 3}));
    click(0);
    key(Qt::Key_Down);
    EXPECT_EQ(selected(), Ids{2});
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (Ids{1, 2}));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), (Ids{1, 2, 3}));
    click(1);
    key(Qt::Key_Delete);
    settle();
    EXPECT_EQ(texts(Id), (QStringList{"3", "1"}));
    QTest::keyClick(&dialog(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(texts(Id), (QStringList{"3", "2", "1"})) << "undo works here";
}

TEST_F(EventTableTest, ReturnAndADoubleClickGoToTheEvent) {
    session.send("event track 1 start 100000 duration 500 <note> 5 90 </note>");
    session.send("zoom_animation 0");
    session.send("zoom_hor 0.9");
    show_all_tracks();  // 3 2 1 4
    click(3);
    EXPECT_EQ(box.activetrack, 0) << "a click goes nowhere";
    const double before = box.horizontalscroll;
    key(Qt::Key_Return);
    EXPECT_EQ(box.activetrack, 1);
    EXPECT_EQ(selected(), Ids{4});
    EXPECT_GT(box.horizontalscroll, before);
    const auto view = show_lines(box, "view");
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, middle(3));
    EXPECT_EQ(show_lines(box, "view"), view) << "what is in view stays where it is";
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, middle(0));
    EXPECT_LT(box.horizontalscroll, before + 0.01);
    EXPECT_EQ(selected(), Ids{3});
}

TEST_F(EventTableTest, FollowsTheBox) {
    session.send("event start 100 <note> 50 90 </note>");
    settle();
    EXPECT_EQ(texts(Id), (QStringList{"4", "2", "1"}));
    session.send("event id 4 start 3000");
    settle();
    EXPECT_EQ(texts(Id), (QStringList{"2", "1", "4"})) << "in order again";
    session.send("select_where label c");
    settle();
    EXPECT_TRUE(marked(0) && !marked(1));
    EXPECT_EQ(table->currentIndex().row(), 0) << "one that was selected elsewhere gets the focus";
    session.send("track_active 1");
    settle();
    EXPECT_EQ(texts(Id), QStringList{"3"});
    session.send("read nothing.json");
    settle();
    EXPECT_EQ(table->model()->rowCount(), 0);
}

TEST_F(EventTableTest, CellsAreEditedInPlaceEachAsOneStep) {
    struct Row {
        Column column;
        const char *typed, *becomes;
    };
    const size_t steps = box.history.items.size();
    const Row rows[] = {{Start, "750.5", "750.5"}, {Bar, "2.1", "2.1.000"},
                        {Duration, "90", "90"},    {Pitch, "60.25", "60.25"},
                        {Velocity, "1", "1"},      {Label, "two words 3", "two words 3"}};
    for (const Row& row : rows) {
        type(0, row.column, row.typed);
        const auto now = static_cast<int>(texts(Id).indexOf("2"));
        EXPECT_EQ(text(now, row.column), row.becomes);
        if (now != 0) session.send("undo"), settle();
    }
    const std::string before = document_of(session);
    for (const Row& row : {Row{Start, "-1", ""}, Row{Duration, "0", ""}, Row{Pitch, "200", ""},
                           Row{Velocity, "loud", ""}, Row{Label, "two words 3", ""}})
        type(0, row.column, row.typed);
    EXPECT_EQ(document_of(session), before) << "what is no value changes nothing";
    EXPECT_EQ(event(2).pitch, 60.25);
    EXPECT_EQ(event(2).velocity, 1);
    session.send("undo");
    EXPECT_TRUE(event(2).label == gensym("c"));
    EXPECT_LE(box.history.items.size(), steps + std::size(rows));
}

/// Rows that were merged are those that would be sorted anew.
TEST(EventRows, AreTheSameMergedAsSortedAnew) {
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::minstd_rand random(seed);
    const auto below = [&](long n) { return static_cast<long>(random()) % n; };
    Session session;
    session.send("track_add a");
    EventRows kept;
    EventRows::Choice choice{.all_tracks = true};
    for (int round = 0; round < 60; ++round) {
        if (round % 20 == 0) {
            choice.sorted_by = &event_columns()[static_cast<size_t>(below(Sound))];
            choice.descending = below(2);
        }
        for (long n = below(12); n >= 0; --n)
            session.send(fmt::format("event {} start {} label {} <note> {} {} </note>",
                                     below(3) ? "" : fmt::format("id {}", 1 + below(40)), below(20) * 100,
                                     "abcd"[below(4)], below(128), below(128)));
        if (below(3) == 0) session.send(fmt::format("event_delete {}", 1 + below(40)));
        if (below(5) == 0) session.send("undo");
        kept.gather(session.box(), choice);
        EventRows fresh;
        fresh.gather(session.box(), choice);
        ASSERT_EQ(kept.size(), fresh.size());
        for (size_t row = 0; row < fresh.size(); ++row) ASSERT_EQ(kept.id(row), fresh.id(row)) << round;
    }
    EXPECT_GT(kept.size(), 20u);
}

}  // namespace
}  // namespace tq::test
