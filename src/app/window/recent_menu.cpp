#include "app/window/recent_menu.h"

#include <QFileInfo>
#include <QMenu>

#include "app/patch/recent_files.h"

namespace tq {

size_t add_recent_files(QMenu& menu, const std::function<void(const std::string&)>& open) {
    const std::vector<std::string> paths = recent_files();
    for (const std::string& path : paths) {
        QAction* action = menu.addAction(QString::fromStdString(path).replace("&", "&&"));
        action->setEnabled(QFileInfo::exists(QString::fromStdString(path)));
        QObject::connect(action, &QAction::triggered, &menu, [open, path] { open(path); });
    }
    return paths.size();
}

}  // namespace tq
