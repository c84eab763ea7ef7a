#include "app/window/sound_menu.h"

#include <QMenu>

#include <algorithm>
#include <array>
#include <iterator>

#include "app/midi/programs.h"
#include "app/patch/receivers.h"

namespace tq {

namespace {

constexpr int programs_of_family = 8;
constexpr std::array families = {"Piano",         "Chromatic Percussion",
                                 "Organ",         "Guitar",
                                 "Bass",          "Strings",
                                 "Ensemble",      "Brass",
                                 "Reed",          "Pipe",
                                 "Synth Lead",    "Synth Pad",
                                 "Synth Effects", "Ethnic",
                                 "Percussive",    "Sound Effects"};

struct Kit {
    int program;
    const char* name;
};
constexpr Kit kits[] = {{0, "Standard"},    {8, "Room"},       {16, "Power"},
                        {24, "Electronic"}, {25, "Analog"},    {32, "Jazz"},
                        {40, "Brush"},      {48, "Orchestra"}, {56, "Sound Effects"}};

QString program_name(int program) {
    const std::string_view name = midi_program_name(program);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

constexpr const char* no_sound = "None of its own (outlet 0)";

}  // namespace

QString sound_name(const std::string& receiver) {
    if (receiver.empty()) return no_sound;
    const std::optional<Voice> voice = voice_of_receiver(receiver);
    if (!voice) return QString::fromStdString(receiver);
    if (!voice->drums) return program_name(voice->program);
    const auto kit = std::ranges::find(kits, voice->program, &Kit::program);
    return kit == std::end(kits) ? QString::fromStdString(receiver) : QString("Drums: %1").arg(kit->name);
}

void fill_sound_menu(QMenu& menu, const std::string& chosen,
                     const std::function<void(const std::string&)>& choose) {
    bool found = false;
    const auto add = [&](QMenu& to, const QString& text, const std::string& receiver) {
        QAction* action = to.addAction(text);
        if (receiver == chosen) {
            action->setCheckable(true);
            action->setChecked(true);
            QFont marked = to.menuAction()->font();
            marked.setBold(true);
            if (&to != &menu) to.menuAction()->setFont(marked);
            found = true;
        }
        QObject::connect(action, &QAction::triggered, &menu, [choose, receiver] { choose(receiver); });
    };
    add(menu, no_sound, "");
    menu.addSeparator();
    for (size_t family = 0; family < families.size(); ++family) {
        QMenu* of_family = menu.addMenu(families[family]);
        for (int i = 0; i < programs_of_family; ++i) {
            const int program = static_cast<int>(family) * programs_of_family + i;
            add(*of_family, program_name(program), receiver_of_voice({.program = program}));
        }
    }
    QMenu* drums = menu.addMenu("Drums");
    for (const Kit& kit : kits)
        add(*drums, kit.name, receiver_of_voice({.program = kit.program, .drums = true}));
    if (!found) {
        menu.addSeparator();
        add(menu, QString::fromStdString(chosen), chosen);
    }
}

}  // namespace tq
