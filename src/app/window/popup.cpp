#include "app/window/popup.h"

#include <QMenu>

#include "app/window/pixmap.h"

namespace tq {

namespace {

void add(QMenu& menu, const PopupItem& item, size_t index) {
    if (item.separator) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(QString::fromStdString(item.text).replace("&", "&&"));
    action->setData(QVariant::fromValue(static_cast<qulonglong>(index)));
    action->setEnabled(!item.disabled);
    action->setCheckable(item.checked);
    action->setChecked(item.checked);
    if (item.icon) action->setIcon(icon_of(*item.icon));
}

}  // namespace

std::optional<size_t> choose_below(const QWidget& widget, Point at, std::span<const PopupItem> items) {
    QMenu menu(widget.window());
    for (size_t i = 0; i < items.size(); ++i) add(menu, items[i], i);
    const QAction* chosen = menu.exec(widget.mapToGlobal(QPointF(at.x, at.y).toPoint()));
    return chosen ? std::optional<size_t>(chosen->data().toULongLong()) : std::nullopt;
}

}  // namespace tq
