#include "app/window/run.h"

#include <QApplication>
#include <QIcon>

#include <filesystem>

#include "app/patch/box_settings.h"
#include "app/window/ask_recovery.h"
#include "app/window/key_changes.h"
#include "app/window/line_input.h"
#include "app/window/main_window.h"
#include "app/window/surroundings.h"
#include "host/graphics_runtime.h"
#include "host/resources.h"

namespace tq {

namespace {

std::optional<Recovery> wanted_recovery(const std::vector<DeadSession>& dead, const WindowOptions& options,
                                        bool can_ask) {
    if (dead.empty()) return {};
    if (options.recover) return recover(dead.front().folder);
    return can_ask ? ask_for_recovery(dead) : std::nullopt;
}

/// A session that was brought back goes on in its own working folder.
void bring_back(MainWindow& window, Recovery& recovery) {
    std::error_code ignored;
    if (!recovery.working_folder.empty()) std::filesystem::current_path(recovery.working_folder, ignored);
    window.files().go_on_with(recovery);
}

void begin_journal(MainWindow& window) {
    std::string fault;
    if (std::optional<SessionFolder> folder = SessionFolder::make(fault))
        window.files().keep_journal(std::make_unique<Journal>(window.session(), std::move(*folder), true));
    else
        window.tell("this session has no journal: " + fault);
}

/// Scripts begin with the box as it is.
void begin_by_hand(Session& session) {
    std::string fault;
    for (const MessageCall& message : first_messages(fault)) session.call(message);
    if (!fault.empty()) object_error(session.box(), "the settings were not read: " + fault);
}

/// Desktops find the icon by the name of the entry in their menu; others are given it.
void show_icon() {
    const std::string name = "tq.sorvo.sequencer";
    QGuiApplication::setDesktopFileName(QString::fromStdString(name));
    const std::filesystem::path picture = resources_folder() / "icons" / (name + ".png");
    QGuiApplication::setWindowIcon(QIcon(QString::fromStdString(picture.string())));
}

}  // namespace

std::optional<int> show_main_window(const WindowOptions& options) {
    GraphicsRuntime runtime(GraphicsRuntime::Screen::IfThere);
    if (!runtime.has_screen() && !options.lines) return {};
    show_icon();
    if (runtime.has_screen()) follow_surroundings();
    std::vector<std::string> key_faults;
    use_keys(kept_keys(key_faults));
    const DeadSessions dead = find_dead_sessions();
    const bool can_ask = runtime.has_screen();
    std::optional<Recovery> recovery = wanted_recovery(dead.sessions, options, can_ask);
    MainWindow window(open_loudspeaker(),
                      recovery ? std::move(recovery->session) : std::make_unique<Session>());
    std::optional<LineInput> input;  // before the journal, which hears what lines answer to dialogs
    if (options.lines) input.emplace(window, !can_ask);
    for (const std::string& note : dead.notes) window.tell(note);
    for (const std::string& fault : key_faults) window.tell(fault);
    if (recovery)
        bring_back(window, *recovery);
    else
        begin_journal(window);
    if (!recovery && !options.lines) begin_by_hand(window.session());
    if (!options.prepare(window.session())) return 1;
    if (options.recover && !recovery) window.tell("there is no session to bring back");
    if (can_ask && !options.lines) {
        window.files().ask_before_losing();
        window.keep_looks();
    }
    window.show();
    QApplication::processEvents();  // a document's view is meant for the box as it is laid out
    if (!options.file.empty() && recovery)
        window.tell("\"" + options.file + "\" was not opened: a session came back");
    else if (!options.file.empty())
        window.files().open(options.file);
    if (input) input->start();
    return QApplication::exec();
}

}  // namespace tq
