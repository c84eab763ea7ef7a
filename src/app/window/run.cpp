#include "app/window/run.h"

#include <QApplication>

#include "app/window/main_window.h"
#include "host/graphics_runtime.h"

namespace tq {

std::optional<int> show_main_window(const std::string& file) {
    GraphicsRuntime runtime(GraphicsRuntime::Screen::IfThere);
    if (!runtime.has_screen()) return {};
    MainWindow window(open_loudspeaker());
    if (!file.empty()) window.open(file);
    window.show();
    return QApplication::exec();
}

}  // namespace tq
