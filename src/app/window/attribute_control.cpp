#include "app/window/attribute_control.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>
#include <memory>

#include "app/window/field_control.h"

namespace tq {

namespace {

using Set = std::function<void(Atoms)>;

constexpr int control_width = 150, swatch_width = 120, swatch_height = 14, square = 7;  // pixels
constexpr double most = 1e9;

double first(const Atoms& values) { return values.empty() ? 0 : values.front().as_double(); }

QColor color_of(const Atoms& values) {
    if (values.size() < 4) return {};
    const auto part = [&](size_t i) { return static_cast<float>(values[i].as_double()); };
    return QColor::fromRgbF(part(0), part(1), part(2), part(3));
}

Atoms atoms_of(const QColor& color) {
    Atoms values;
    for (const float part : {color.redF(), color.greenF(), color.blueF(), color.alphaF()})
        values.push_back(Atom(double(part)));
    return values;
}

/// Over squares, which show how much of them it covers.
QIcon swatch(const QColor& color) {
    constexpr int sharpness = 2;
    QPixmap picture(QSize(swatch_width, swatch_height) * sharpness);
    picture.setDevicePixelRatio(sharpness);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    for (int x = 0; x < swatch_width; x += square)
        for (int y = x / square % 2 * square; y < swatch_height; y += 2 * square)
            painter.fillRect(x, y, square, square, Qt::lightGray);
    painter.fillRect(0, 0, swatch_width, swatch_height, color);
    painter.setPen(Qt::darkGray);
    painter.drawRect(QRectF(0, 0, swatch_width - 0.5, swatch_height - 0.5));
    return picture;
}

AttributeControl make_color(const Attribute& attribute, const Set& set) {
    auto* button = new QToolButton;
    button->setIconSize(QSize(swatch_width, swatch_height));
    auto shown = std::make_shared<QColor>();
    const QString title = QString::fromStdString(attribute.label);
    QObject::connect(button, &QToolButton::clicked, button, [=] {
        const QColor chosen = QColorDialog::getColor(*shown, button, title, QColorDialog::ShowAlphaChannel);
        if (chosen.isValid() && chosen != *shown) set(atoms_of(chosen));
    });
    return {button, [=](const Atoms& values) {
                *shown = color_of(values);
                button->setIcon(swatch(*shown));
            }};
}

AttributeControl make_switch(const Attribute&, const Set& set) {
    auto* box = new QCheckBox;
    QObject::connect(box, &QCheckBox::clicked, box, [set](bool on) { set({long{on}}); });
    return {box, [box](const Atoms& values) { box->setChecked(first(values) != 0); }};
}

AttributeControl make_enumeration(const Attribute& attribute, const Set& set) {
    auto* menu = new QComboBox;
    for (const std::string& text : attribute.enums) menu->addItem(QString::fromStdString(text));
    QObject::connect(menu, &QComboBox::activated, menu, [set](int index) { set({index}); });
    return {menu, [menu](const Atoms& values) { menu->setCurrentIndex(static_cast<int>(first(values))); }};
}

/// Shows no more decimals than there are.
class NumberBox final : public QDoubleSpinBox {
 public:
    QString textFromValue(double value) const override {
        return locale().toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

AttributeControl make_number(const Attribute& attribute, const Set& set) {
    auto* number = new NumberBox;
    const auto [least, largest] = attribute.clip.value_or(std::pair(-most, most));
    number->setRange(least, largest);
    number->setDecimals(attribute.type == Attribute::Type::Float ? 3 : 0);
    number->setKeyboardTracking(false);
    QObject::connect(number, &QDoubleSpinBox::valueChanged, number,
                     [set](double value) { set({number_atom(value)}); });
    return {number, [number](const Atoms& values) {
                const QSignalBlocker quiet(number);
                number->setValue(first(values));
            }};
}

AttributeControl make_text(const Attribute&, const Set& set) {
    auto* line = new QLineEdit;
    QObject::connect(line, &QLineEdit::editingFinished, line, [=] {
        if (!line->isModified()) return;
        line->setModified(false);
        set({gensym(line->text().toStdString())});
    });
    return {line, [line](const Atoms& values) {
                const QString text =
                    values.empty() ? QString() : QString::fromStdString(values.front().as_symbol().text());
                if (text != line->text() && !line->isModified()) line->setText(text);
            }};
}

/// The wheel scrolls the page, unless a control was chosen before.
class WheelGuard final : public QObject {
 public:
    explicit WheelGuard(QWidget& control) : QObject(&control) { control.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool passing = event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus();
        if (passing) event->ignore();
        return passing;
    }
};

struct StyleRow {
    const char* style;
    AttributeControl (*make)(const Attribute&, const Set&);
};
constexpr StyleRow styles[] = {{"rgba", make_color}, {"onoff", make_switch}, {"enumindex", make_enumeration}};

}  // namespace

AttributeControl make_attribute_control(const Attribute& attribute, const std::function<void(Atoms)>& set) {
    auto make = attribute.type == Attribute::Type::Name ? make_text : make_number;
    for (const StyleRow& row : styles)
        if (attribute.style == row.style) make = row.make;
    AttributeControl control = make(attribute, set);
    control.widget->setObjectName(attribute.name.text());
    control.widget->setAccessibleName(QString::fromStdString(attribute.label));
    control.widget->setMinimumWidth(control_width);
    control.widget->setFocusPolicy(Qt::StrongFocus);
    new WheelGuard(*control.widget);
    return control;
}

}  // namespace tq
