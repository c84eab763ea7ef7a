#include "app/window/run.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>

#include <algorithm>
#include <filesystem>

#include "app/journal/kept_work.h"
#include "app/journal/recovery.h"
#include "app/window/kept_work_dialog.h"
#include "app/window/key_changes.h"
#include "app/window/line_input.h"
#include "app/window/main_window.h"
#include "app/window/surroundings.h"
#include "host/graphics_runtime.h"
#include "host/resources.h"

namespace tq {

namespace {

/// What the window begins with.
struct Begin {
    std::optional<Recovery> recovery;
    std::optional<KeptWork> copy;
};

/// Asks until something comes back, or nothing is to.
Begin ask_what_comes_back(KeptWorkFound found) {
    while (const std::optional<KeptWork> work = choose_kept_work(found.work, nullptr)) {
        if (work->kind == KeptWork::Kind::Copy) return {{}, work};
        if (std::optional<Recovery> recovery = recover(work->path)) return {std::move(recovery), {}};
        QMessageBox::warning(nullptr, "sorvo", "This session cannot be brought back.");
        found = find_kept_work();
    }
    return {};
}

/// Copies alone are no reason to ask.
Begin wanted_begin(const KeptWorkFound& found, const WindowOptions& options, bool can_ask) {
    const auto session = std::ranges::find(found.work, KeptWork::Kind::Session, &KeptWork::kind);
    if (session == found.work.end()) return {};
    if (options.recover) return {recover(session->path), {}};
    return can_ask ? ask_what_comes_back(found) : Begin();
}

/// A session that was brought back goes on in its own working folder.
void bring_back(MainWindow& window, Recovery& recovery) {
    std::error_code ignored;
    if (!recovery.working_folder.empty()) std::filesystem::current_path(recovery.working_folder, ignored);
    window.files().go_on_with(recovery);
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
    const KeptWorkFound found = find_kept_work();
    const bool can_ask = runtime.has_screen();
    Begin begin = wanted_begin(found, options, can_ask);
    std::optional<Recovery>& recovery = begin.recovery;
    MainWindow window(open_loudspeaker(),
                      recovery ? std::move(recovery->session) : std::make_unique<Session>());
    std::optional<LineInput> input;  // before the journal, which hears what lines answer to dialogs
    if (options.lines) input.emplace(window, !can_ask);
    for (const std::string& note : found.notes) window.tell(note);
    for (const std::string& fault : key_faults) window.tell(fault);
    if (recovery)
        bring_back(window, *recovery);
    else
        window.files().begin_journal();
    if (!recovery && !options.lines) window.files().begin_by_hand();
    if (!options.prepare(window.session())) return 1;
    if (options.recover && !recovery) window.tell("there is no session to bring back");
    if (can_ask && !options.lines) {
        window.files().ask_before_losing();
        window.keep_looks();
    }
    window.show();
    QApplication::processEvents();  // a document's view is meant for the box as it is laid out
    if (begin.copy) window.files().bring_back(*begin.copy);
    if (!options.file.empty() && (recovery || begin.copy))
        window.tell("\"" + options.file + "\" was not opened: unsaved work came back");
    else if (!options.file.empty())
        window.files().open(options.file);
    if (input) input->start();
    return QApplication::exec();
}

}  // namespace tq
