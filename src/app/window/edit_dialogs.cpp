#include "app/window/edit_dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

#include "app/midi/controllers.h"
#include "app/window/window_state.h"

namespace tq {

namespace {

using Choice = ChoiceQuestion::Choice;

constexpr double percent = 0.01, loudest = 127, highest_key = 131;

constexpr Choice grids[] = {{"What time snaps to", "snap"},
                            {"1/4", "1/4"},
                            {"1/8", "1/8"},
                            {"1/8 triplets", "1/8T"},
                            {"1/16", "1/16"},
                            {"1/32", "1/32"},
                            {"1/64", "1/64"},
                            {"1/16 triplets", "1/16T"}};
constexpr Choice ends[] = {{"Starts", "starts"}, {"Ends", "ends"}, {"Starts and ends", "both"}};
constexpr Choice fading_curves[] = {{"Expression", "Expression"},
                                    {"Volume", "Volume"},
                                    {"Brightness", "Brightness"},
                                    {"Modulation", "Modulation"}};
constexpr Choice qualities[] = {{"Pitch", "pitch"}, {"Velocity", "velocity"}};
constexpr Choice hows[] = {{"Only these", "only"},
                           {"These as well", "add"},
                           {"Without these", "remove"},
                           {"Of what is selected", "within"}};
constexpr Choice note_values[] = {{"2", "2"}, {"4", "4"}, {"8", "8"}, {"16", "16"}, {"32", "32"}};

/// Where a track's curve begins that has none yet: a fade is not to be a jump.
std::string initial_level(const QStringList& words) {
    const std::optional<int> controller = controller_named(words.front().toStdString());
    return controller ? std::to_string(controller_initial(*controller)) : std::string();
}

const std::vector<EditDialogRow>& rows() {
    using enum WindowAction;
    static const std::vector<EditDialogRow> all = {
        {QuantiseWith,
         "quantise",
         "Strength is how far events go; swing how late every second line is.",
         true,
         {ChoiceQuestion{"&Grid", grids}, NumberQuestion{"&Strength", 0, 100, 100, " %", 0, percent},
          NumberQuestion{"S&wing", 0, 100, 0, " %", 0, percent}, ChoiceQuestion{"&What", ends}}},
        {HumaniseWith,
         "humanise",
         "By chance, at most so much in either direction.",
         true,
         {NumberQuestion{"&Time", 0, 1000, 10, " ms"}, NumberQuestion{"&Velocity", 0, loudest, 5}}},
        {Transpose,
         "transpose",
         "12 semitones are an octave.",
         true,
         {NumberQuestion{"&Semitones", -highest_key, highest_key, 7, "", 2}}},
        {Stretch,
         "stretch",
         "Times and lengths, from the selection's start on.",
         true,
         {NumberQuestion{"&Time", 0.1, 100000, 200, " %", 1, percent}}},
        {Velocities,
         "velocity_scale",
         "First times, then plus; held in 0 to 127.",
         true,
         {NumberQuestion{"&Times", -1000, 1000, 100, " %", 0, percent},
          NumberQuestion{"&Plus", -loudest, loudest, 0}}},
        {Crescendo,
         "velocity_ramp",
         "Velocities, from the first start to the last.",
         true,
         {NumberQuestion{"&From", 0, loudest, 40}, NumberQuestion{"&To", 0, loudest, 110}}},
        {FadeCurve,
         "curve_fade",
         "Also within notes that last. What is drawn in the curve keeps its shape.",
         true,
         {ChoiceQuestion{"&Curve", fading_curves}, NumberQuestion{"&From", 0, 100, 100, " %", 0, percent},
          NumberQuestion{"&To", 0, 100, 0, " %", 0, percent}},
         initial_level},
        {SelectWhere,
         "select_where",
         "Among the events of the active track. Pitch 60 is middle C.",
         false,
         {ChoiceQuestion{"&By", qualities}, NumberQuestion{"&From", 0, highest_key, 60},
          NumberQuestion{"&To", 0, highest_key, 71}, ChoiceQuestion{"&Select", hows}}},
        {TimeSignature,
         "time_signature",
         "Holds until the next change of it. Events stay where they are.",
         false,
         {NumberQuestion{"&From bar", 1, 1e6, 1}, NumberQuestion{"&Beats", 1, 128, 3},
          ChoiceQuestion{"of &note value", note_values, 1}}}};
    return all;
}

}  // namespace

const EditDialogRow* find_edit_dialog(WindowAction action) {
    const auto row = std::ranges::find(rows(), action, &EditDialogRow::action);
    return row == rows().end() ? nullptr : &*row;
}

EditDialog::EditDialog(QWidget& window, const EditDialogRow& row, Acts acts)
    : QDialog(&window), row_(row), acts_(std::move(acts)) {
    setObjectName(row.message);
    setWindowTitle(QString(text_of(row.action)).remove("..."));
    auto* form = new QFormLayout(this);
    for (const EditQuestion& question : row.questions)
        std::visit([this](const auto& asked) { add(asked); }, question);
    auto* hint = new QLabel(row.hint);
    hint->setEnabled(false);
    form->addRow(hint);
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Close);
    form->addRow(buttons);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        apply();
        accept();
    });
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &EditDialog::apply);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    make_dialog_shortcuts(*this, acts_.wants);
    keep_place(*this, QString("edit ") + row.message);
}

void EditDialog::add(const NumberQuestion& question) {
    auto* field = new QDoubleSpinBox;
    field->setRange(question.least, question.most);
    field->setDecimals(question.decimals);
    field->setSuffix(question.suffix);
    field->setValue(question.first);
    field->setObjectName(QString(question.name).remove('&'));
    static_cast<QFormLayout*>(layout())->addRow(question.name, field);
    answers_.emplace_back([field, unit = question.unit] {
        constexpr int digits = 12;
        return QString::number(field->value() * unit, 'g', digits);
    });
}

void EditDialog::add(const ChoiceQuestion& question) {
    auto* field = new QComboBox;
    for (const ChoiceQuestion::Choice& choice : question.choices)
        field->addItem(choice.text, QString(choice.word));
    field->setCurrentIndex(question.first);
    field->setObjectName(QString(question.name).remove('&'));
    static_cast<QFormLayout*>(layout())->addRow(question.name, field);
    answers_.emplace_back([field] { return field->currentData().toString(); });
}

void EditDialog::apply() {
    QStringList words;
    for (const auto& answer : answers_) words << answer();
    if (row_.last_word) words << QString::fromStdString(row_.last_word(words));
    acts_.send(row_.message + (" " + words.join(' ')).toStdString());
}

}  // namespace tq
