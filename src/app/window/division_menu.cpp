#include "app/window/division_menu.h"

#include <QMenu>

namespace tq {

namespace {

constexpr struct {
    long division;
    const char* text;
} rows[] = {{0, "Steps of the Ruler"},    {1, "Beats"},  {2, "Half Beats"}, {3, "Thirds (Triplets)"},
            {4, "Quarters (Sixteenths)"}, {6, "Sixths"}, {8, "Eighths"},    {12, "Twelfths"},
            {16, "Sixteenths of a Beat"}};

}  // namespace

void fill_division_menu(QMenu& menu, long division, const std::function<void(const std::string&)>& send) {
    for (const auto& row : rows) {
        QAction* action = menu.addAction(row.text);
        action->setCheckable(true);
        action->setChecked(row.division == division);
        QObject::connect(action, &QAction::triggered, &menu,
                         [send, chosen = row.division] { send("snap_division " + std::to_string(chosen)); });
    }
}

QString division_text(long division) {
    return division == 0 ? QString("ruler") : division == 1 ? QString("beat") : QString("1/%1").arg(division);
}

}  // namespace tq
