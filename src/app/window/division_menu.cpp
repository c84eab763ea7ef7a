#include "app/window/division_menu.h"

#include <QMenu>
#include <bit>

namespace tq {

namespace {

constexpr long divisions[] = {0, 1, 2, 3, 4, 6, 8, 12, 16};

bool is_power_of_two(long number) { return std::has_single_bit(static_cast<unsigned long>(number)); }

QString parts_of_beat(long division) {
    return division == 1 ? QString("the beat") : QString("%1 to a beat").arg(division);
}

}  // namespace

QString division_text(long division, long beat) {
    constexpr long parts_of_triplet = 3, that_last_as = 2;
    if (division == 0) return "ruler";
    if (is_power_of_two(division)) return QString("1/%1").arg(beat * division);
    const long of_two = division * that_last_as / parts_of_triplet;
    const bool triplets = division % parts_of_triplet == 0 && is_power_of_two(of_two);
    return triplets ? QString("1/%1 T").arg(beat * of_two) : parts_of_beat(division);
}

void fill_division_menu(QMenu& menu, const Divided& now,
                        const std::function<void(const std::string&)>& send) {
    for (const long division : divisions) {
        const QString note = division_text(division, now.beat);
        QAction* action =
            menu.addAction(division == 0 ? QString("Steps of the Ruler")
                                         : QString("%1 (%2)").arg(note, parts_of_beat(division)));
        action->setCheckable(true);
        action->setChecked(division == now.division);
        QObject::connect(action, &QAction::triggered, &menu,
                         [send, division] { send("snap_division " + std::to_string(division)); });
    }
}

}  // namespace tq
