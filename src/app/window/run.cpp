#include "app/window/run.h"

#include <QApplication>

#include "app/window/main_window.h"
#include "host/graphics_runtime.h"

namespace tq {

std::optional<int> show_main_window(const std::string& file, const std::function<bool(Session&)>& prepare) {
    GraphicsRuntime runtime(GraphicsRuntime::Screen::IfThere);
    if (!runtime.has_screen()) return {};
    MainWindow window(open_loudspeaker());
    if (!prepare(window.session())) return 1;
    window.show();
    QApplication::processEvents();  // a document's view is meant for the box as it is laid out
    if (!file.empty()) window.open(file);
    return QApplication::exec();
}

}  // namespace tq
