#include "app/window/field_control.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QTabBar>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "app/window/hue_field.h"
#include "app/window/number_field.h"
#include "app/window/table_field.h"
#include "app/window/text_field.h"
#include "inspectors/patcher_helpers.h"

namespace tq {

namespace {

constexpr double highest_line = 40;  // pixels; a text that is higher has lines

long index_of(const Field& field) { return field.value().empty() ? 0 : field.value().front().as_long(); }

class LabelControl final : public QLabel, public FieldControl {
 public:
    QWidget& widget() override { return *this; }
    void display(const Field& field) override {
        const QString text = QString::fromStdString(TQ_Prseq_Utilities_GetTextAtomsFromSender(field));
        setTextFormat(Qt::PlainText);
        setToolTip(text.toHtmlEscaped());
        setText(text);
    }
};

class ToggleControl final : public QCheckBox, public FieldControl {
 public:
    explicit ToggleControl(const FieldUser& user) {
        connect(this, &QCheckBox::clicked, this, [user](bool on) { user.does("value", {long{on}}); });
    }
    QWidget& widget() override { return *this; }
    void display(const Field& field) override {
        setEnabled(field.enabled());
        setChecked(index_of(field) != 0);  // which is not "clicked"
    }
};

class MenuControl final : public QComboBox, public FieldControl {
 public:
    explicit MenuControl(const FieldUser& user) {
        connect(this, &QComboBox::activated, this, [this, user](int index) {
            if (index != shown_) user.does("value", {index});
        });
    }
    QWidget& widget() override { return *this; }
    void display(const Field& field) override {
        QStringList lines;
        for (const std::string& choice : field.choices()) lines << QString::fromStdString(choice);
        if (lines != lines_) {
            clear();
            addItems(lines);
            lines_ = lines;
        }
        shown_ = static_cast<int>(index_of(field));
        setCurrentIndex(shown_);  // which is not "activated"
        setEnabled(field.enabled());
    }

 private:
    QStringList lines_;
    int shown_ = 0;
};

class SelectorControl final : public QTabBar, public FieldControl {
 public:
    SelectorControl(const FieldForm& form, const FieldUser& user) {
        setDrawBase(false);
        setUsesScrollButtons(false);
        setFocusPolicy(Qt::TabFocus);
        for (const std::string& page : form.pages) addTab(QString::fromStdString(page));
        connect(this, &QTabBar::currentChanged, this, [user](int index) { user.does("value", {index}); });
    }
    QWidget& widget() override { return *this; }
    void display(const Field& field) override {
        const QSignalBlocker quiet(this);
        setCurrentIndex(static_cast<int>(index_of(field)));
        setEnabled(field.enabled());
    }
};

}  // namespace

FieldControl* make_control(const FieldForm& form, double height, const FieldUser& user) {
    switch (form.kind) {
        case FieldKind::Label:
            return new LabelControl;
        case FieldKind::Text:
            if (height > highest_line) return new MemoField(user);
            return new LineField(user);
        case FieldKind::Number:
            return new NumberField(form, user);
        case FieldKind::Toggle:
            return new ToggleControl(user);
        case FieldKind::Menu:
            return new MenuControl(user);
        case FieldKind::Color:
            return new HueField(form, user);
        case FieldKind::Table:
            return new TableField(form, user);
        case FieldKind::Selector:
            return new SelectorControl(form, user);
    }
    return nullptr;
}

Atom number_atom(double value) {
    constexpr double largest_exact = 9007199254740992.;
    const bool whole = std::floor(value) == value && std::abs(value) <= largest_exact;
    return whole ? Atom(static_cast<long>(value)) : Atom(value);
}

std::string number_text(const Atom& number) {
    if (!number.is_float()) return atom_gettext({&number, 1});
    char digits[128];
    const auto value = static_cast<float>(number.as_double());
    const auto [end, error] =
        std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed);
    return error == std::errc() ? std::string(digits, end) : atom_gettext({&number, 1});
}

std::optional<double> number_of(const std::string& text) {
    std::string digits = text;
    std::ranges::replace(digits, ',', '.');
    const char *begin = digits.data(), *const end = begin + digits.size();
    while (begin < end && (*begin == ' ' || *begin == '+')) ++begin;
    double value = 0;
    const auto [rest, error] = std::from_chars(begin, end, value);
    const bool whole = error == std::errc() &&
                       digits.find_first_not_of(' ', size_t(rest - digits.data())) == std::string::npos;
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace tq
