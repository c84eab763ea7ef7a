// Edits with numbers, as a person asks for them.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QMenu>
#include <QPushButton>

#include "app/window/edit_dialogs.h"
#include "app/window/window_fixture.h"

namespace tq::test {
namespace {

struct EditDialogsTest : WindowTest {
    EditDialogsTest() {
        for (const char* line : {"track_add", "time_display_type bars", "snap_division 4",
                                 "event start 0 duration 200 <note> 60 80 </note>",
                                 "event start 260 duration 200 <note> 62 80 </note>"})
            session.send(line);
        run_for(100);
        session.call(CommandCall{"select_all_events"});
    }
    void run_for(double ms) { session.host().scheduler.run_until(session.host().scheduler.now() + ms); }
    QDialog& open(WindowAction action) {
        window.run(Shortcut::What(action));
        return part<QDialog>(find_edit_dialog(action)->message);
    }
    static void answer(QDialog& dialog, const char* name, double value) {
        dialog.findChild<QDoubleSpinBox*>(name)->setValue(value);
    }
    static void choose(QDialog& dialog, const char* name, const char* text) {
        dialog.findChild<QComboBox*>(name)->setCurrentText(text);
    }
    static void click(QDialog& dialog, QDialogButtonBox::StandardButton button) {
        dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    }
    Event& event(long id) { return *box.events_by_id.find(id); }
};

TEST_F(EditDialogsTest, QuantiseSwingsByKeyAgainAndAgain) {
    press(Qt::Key_Q, Qt::ShiftModifier);
    auto& dialog = part<QDialog>("quantise");
    QApplication::setActiveWindow(&dialog);  // the platform of the tests does not do so by itself
    answer(dialog, "Swing", 50);
    click(dialog, QDialogButtonBox::Apply);
    EXPECT_EQ(event(2).start, 313) << "a sixteenth, and half of half of it";
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(event(2).start, 260) << "undone from within";
    choose(dialog, "Grid", "1/8");
    answer(dialog, "Swing", 0);
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(event(2).start, 500);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(EditDialogsTest, EachAsksTheBoxForWhatItSays) {
    const auto ok = [this](WindowAction action, auto... answers) {
        QDialog& dialog = open(action);
        (answers(dialog), ...);
        click(dialog, QDialogButtonBox::Ok);
    };
    const auto number = [](const char* name, double value) {
        return [=](QDialog& dialog) { answer(dialog, name, value); };
    };
    const auto word = [](const char* name, const char* text) {
        return [=](QDialog& dialog) { choose(dialog, name, text); };
    };
    ok(WindowAction::Transpose, number("Semitones", -0.5));
    EXPECT_EQ(event(1).pitch, 59.5);
    ok(WindowAction::Velocities, number("Times", 50), number("Plus", 3));
    EXPECT_EQ(event(1).velocity, 43);
    ok(WindowAction::Crescendo, number("From", 20), number("To", 60));
    EXPECT_EQ(event(2).velocity, 60);
    ok(WindowAction::Stretch, number("Time", 50));
    EXPECT_EQ(event(2).start, 130);
    ok(WindowAction::FadeCurve, word("Curve", "Volume"));
    EXPECT_EQ(event(2).bpfs.back()->points.back().y, 0);
    EXPECT_EQ(box.tracks[0]->bpftypes.back()->default_, 100) << "as loud as it was";
    ok(WindowAction::SelectWhere, number("From", 61), number("To", 62));
    EXPECT_EQ(box.selection.size(), 1u);
    ok(WindowAction::HumaniseWith, number("Time", 0), number("Velocity", 100));
    EXPECT_EQ(event(1).velocity, 20) << "not selected";
    ok(WindowAction::TimeSignature, number("From bar", 2), number("Beats", 7), word("of note value", "8"));
    EXPECT_EQ(box.meter.barregions.back().beats, 7);
    EXPECT_TRUE(prseq_getdirtyflag(box));
    session.call(CommandCall{"select_nothing"});
    auto& menu = part<QMenu>("Selection");
    emit menu.aboutToShow();
    const auto actions = menu.actions();
    const auto swing = std::ranges::find_if(
        actions, [](const QAction* action) { return action->text().startsWith("Quantise, Swing..."); });
    ASSERT_NE(swing, actions.end());
    EXPECT_FALSE((*swing)->isEnabled()) << "nothing is selected";
}

}  // namespace
}  // namespace tq::test
