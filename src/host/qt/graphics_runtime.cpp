#include "host/graphics_runtime.h"

#include <QApplication>
#include <cstdio>
#include <string>

namespace tq {

namespace {

/// The displays that the surroundings name, and off screen when none of them can be reached.
std::string platforms() {
    std::string list;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) list += "wayland;";
    if (qEnvironmentVariableIsSet("DISPLAY")) list += "xcb;";
    return list + "offscreen";
}

void choose_platform(GraphicsRuntime::Screen screen) {
    if (screen == GraphicsRuntime::Screen::Never) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", platforms().c_str());
    }
}

/// Where there is no session, as in a container, the toolkit remarks on it; nobody needs to know.
void say(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("QStandardPaths: XDG_RUNTIME_DIR")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

}  // namespace

/// The toolkit keeps references to the arguments, so they live beside it.
struct GraphicsRuntime::Application {
    explicit Application(const char* program)
        : name(program), arguments{name.data(), nullptr}, qt(count, arguments) {}
    std::string name;
    char* arguments[2];
    int count = 1;
    QApplication qt;
};

GraphicsRuntime::GraphicsRuntime(Screen screen, const char* program) {
    qInstallMessageHandler(say);
    choose_platform(screen);
    application_ = std::make_unique<Application>(program);
}

GraphicsRuntime::~GraphicsRuntime() = default;

bool GraphicsRuntime::has_screen() const {
    QString platform = QGuiApplication::platformName();
    return platform != "offscreen" && platform != "minimal";
}

}  // namespace tq
