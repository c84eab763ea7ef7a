// The settings: attributes that are changed by hand, and what of them the next box begins with.
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include "app/patch/box_settings.h"
#include "app/window/window_fixture.h"
#include "host/class.h"
#include "temporary_folder.h"

namespace tq::test {
namespace {

void choose_color(const QColor& color) {
    QTimer::singleShot(20, [color] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog) return choose_color(color);
        dialog->setCurrentColor(color);
        dialog->accept();
    });
}

struct Settings : WindowTest {
    const TemporaryFolder folder;
    Settings() {
        ::setenv("XDG_CONFIG_HOME", folder.path.c_str(), 1);
        for (const MessageCall& message : first_messages(fault)) session.call(message);
    }
    ~Settings() override { ::unsetenv("XDG_CONFIG_HOME"); }

    std::string fault;
    std::string file() const { return folder.file("sorvo/box.json"); }
    void open() {
        press(Qt::Key_Comma, Qt::ControlModifier);
        ASSERT_TRUE(part<QDialog>("settings").isVisible());
    }
    void click(const char* name) { QTest::mouseClick(&part<QToolButton>(name), Qt::LeftButton); }
    void toggle(const char* name) {
        QTest::mouseClick(&part<QCheckBox>(name), Qt::LeftButton, {},
                          QPoint(8, part<QCheckBox>(name).height() / 2));
    }
};

TEST_F(Settings, ChangeTheBoxAndFollowIt) {
    open();
    EXPECT_FALSE(part<QDialog>("settings").isModal());
    for (const Attribute& attribute : box.object_class().attributes())
        EXPECT_TRUE(window.findChild<QWidget*>(attribute.name.text().c_str())) << attribute.name.text();
    EXPECT_FALSE(part<QToolButton>("reset border").isEnabled());
    toggle("border");
    EXPECT_FALSE(box.border);
    EXPECT_TRUE(part<QToolButton>("reset border").isEnabled());
    choose_color(QColor(255, 0, 0, 51));
    click("linecursorcolor");
    EXPECT_EQ(box.linecursorcolor.red, 1);
    EXPECT_NEAR(box.linecursorcolor.alpha, 0.2, 1e-4);
    auto& size = part<QDoubleSpinBox>("menufontsize");
    const auto turn_wheel = [&] {
        QWheelEvent wheel({5, 5}, size.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&size, &wheel);
    };
    turn_wheel();
    EXPECT_EQ(box.menufontsize, 12) << "scrolls past it";
    size.setFocus();
    QTest::keyClick(&size, Qt::Key_Up);
    EXPECT_EQ(box.menufontsize, 13);
    part<QComboBox>("new_track_color").setFocus();
    QTest::keyClick(&part<QComboBox>("new_track_color"), Qt::Key_Up);
    EXPECT_EQ(box.new_track_color, 1);
    auto& transport = part<QLineEdit>("transport");
    transport.setFocus();
    QTest::keyClicks(&transport, "my own");
    QTest::keyClick(&transport, Qt::Key_Return);
    EXPECT_EQ(box.transportname, gensym("my own"));

    session.send("border 1");
    session.send("menufontsize 18");
    QTest::qWait(20);
    EXPECT_TRUE(part<QCheckBox>("border").isChecked());
    EXPECT_FALSE(part<QToolButton>("reset border").isEnabled());
    EXPECT_EQ(size.value(), 18);
    click("reset menufontsize");
    EXPECT_EQ(box.menufontsize, 12);
    QTest::mouseClick(&part<QPushButton>("reset all"), Qt::LeftButton);
    for (const Attribute& attribute : box.object_class().attributes())
        EXPECT_TRUE(has_default(box, attribute)) << attribute.name.text();
    EXPECT_FALSE(part<QPushButton>("reset all").isEnabled());
}

TEST_F(Settings, AreThereForTheNextBox) {
    EXPECT_TRUE(box.snappitch) << "whoever draws notes wants those of the keys";
    open();
    EXPECT_FALSE(std::filesystem::exists(file())) << "nothing was changed";
    toggle("showlabels");
    toggle("snappitch");
    choose_color(QColor(0, 0, 255));
    click("upperdisplaycolor");
    Session next;
    for (const MessageCall& message : first_messages(fault)) next.call(message);
    EXPECT_EQ(fault, "");
    for (const Attribute& attribute : box.object_class().attributes())
        EXPECT_EQ(attribute.read(next.box()), attribute.read(box)) << attribute.name.text();
    EXPECT_FALSE(next.box().snappitch);
    EXPECT_EQ(text_of_file(file()).find("border"), std::string::npos) << "only what was changed";

    MainWindow other{Loudspeaker{nullptr, "not in a test"}};
    for (const MessageCall& message : first_messages(fault)) other.session().call(message);
    other.show();
    QTest::qWait(20);
    const QImage picture = other.box().grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() - 5, 5), QColor(Qt::blue));
}

TEST_F(Settings, ABrokenFileCountsForNothing) {
    std::filesystem::create_directories(folder.path / "sorvo");
    const size_t usual = first_messages(fault).size();
    for (const char* text : {"{", "[1]", "{\"border\": 0}", "{\"showlabels\": \"0\", \"border\": \"none\"}",
                             "{\"upperdisplaycolor\": \"1. 0.\"}"}) {
        folder.file_with("sorvo/box.json", text);
        fault.clear();
        EXPECT_EQ(first_messages(fault).size(), usual) << text;
        EXPECT_NE(fault.find("box.json"), std::string::npos) << text << fault;
    }
    folder.file_with("sorvo/box.json", "{\"of another version\": \"1\", \"border\": \"0\"}");
    fault.clear();
    EXPECT_EQ(first_messages(fault).size(), usual + 1);
    EXPECT_EQ(fault, "");
}

}  // namespace
}  // namespace tq::test
