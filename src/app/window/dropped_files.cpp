#include "app/window/dropped_files.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace tq {

std::vector<std::string> take_files(QDropEvent& event) {
    std::vector<std::string> files;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
    if (files.empty()) return files;
    if (event.possibleActions() & Qt::CopyAction) event.setDropAction(Qt::CopyAction);
    event.accept();
    return files;
}

}  // namespace tq
