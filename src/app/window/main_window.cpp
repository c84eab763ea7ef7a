#include "app/window/main_window.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include <cmath>
#include <cstdio>

#include "app/journal/recovery.h"
#include "app/patch/kept_copies.h"
#include "app/patch/recent_files.h"
#include "app/window/attribute_inspector.h"
#include "app/window/box_widget.h"
#include "app/window/console.h"
#include "app/window/console_lines.h"
#include "app/window/export_dialog.h"
#include "app/window/history_list.h"
#include "app/window/keys_page.h"
#include "app/window/pixmap.h"
#include "app/window/transport_bar.h"
#include "app/window/window_menus.h"
#include "file/document_writer.h"
#include "host/files.h"
#include "instance/change.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr int first_width = 1200, first_height = 740, console_height = 160;

const char *const document_files = "Documents (*.json *.sorvo);;All files (*)",
                  *const openable_files =
                      "Documents and MIDI files (*.json *.sorvo *.mid *.midi);;All files (*)";

/// The file that is dragged, or an empty path.
QString dragged_file(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

/// A shortcut does what the item of a menu would, where that can be chosen. Undo and redo first end what is
/// under way, which they may then be about, and saving asks for a name.
bool can_run(Command command, const Prseq& box) {
    const bool looks_for_itself =
        command == Command::Undo || command == Command::Redo || command == Command::Save;
    return looks_for_itself || command_row(command).enabled(box);
}

/// Whole numbers are exact as ints; floats are rounded to single precision.
Atom exact_atom(double value) {
    return value == std::floor(value) ? Atom(static_cast<long>(value)) : Atom(value);
}

}  // namespace

MainWindow::MainWindow(Loudspeaker loudspeaker, std::unique_ptr<Session> session)
    : PatchFiles(session->host().patch),
      loudspeaker_(std::move(loudspeaker)),
      own_session_(std::move(session)),
      session_(*own_session_),
      timer_(session_.host().scheduler),
      notes_(session_),
      box_(new BoxWidget(session_, timer_)),
      console_(new Console(session_)),
      bar_(new TransportBar(session_.box().meter)),
      splitter_(new QSplitter(Qt::Vertical)),
      inspectors_(session_, *this,
                  {.calls = [this](const SessionCall& made) { call(made); },
                   .wants = [this](const Shortcut::What& what) { run(what); }}) {
    console_lines_ = std::make_unique<ConsoleLines>(*this, *console_);
    measure_display();
    build();
    connect_parts();
    listen_to_loudspeaker();
    refresh();
}

MainWindow::~MainWindow() {
    if (loudspeaker_.output) loudspeaker_.output->close();
    // The widgets listen to the session and send to it, so they go first.
    delete bar_;
    delete splitter_;
}

void MainWindow::build() {
    splitter_->addWidget(box_);
    splitter_->addWidget(console_);
    splitter_->setStretchFactor(0, 1);
    splitter_->setCollapsible(0, false);
    console_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    make_menus();
    layout->addWidget(splitter_, 1);
    layout->addWidget(bar_);
    resize(first_width, first_height);
    setAcceptDrops(true);
    box_->setFocus();
}

void MainWindow::connect_parts() {
    box_->painted = [this] { refresh(); };
    console_->entered = [this](const std::vector<std::string>& lines) { console_lines_->run(lines); };
    bar_->play_or_stop = [this] { run(Command::PlayOrStop); };
    bar_->go_to_start = [this] { run(Command::GoToStart); };
    bar_->position = [this](double ms) { call(MessageCall{gensym("position"), {exact_atom(ms)}, {}}); };
    bar_->loop_selection = [this] { run(Command::LoopSelection); };
    bar_->leave = [this] { box_->setFocus(); };
    bar_->loop = [this](bool on) { send(on ? "cycle 1" : "cycle 0"); };
    bar_->tempo = [this](double bpm) { call(TempoCall{bpm}); };
    bar_->console = [this](bool open) { show_console(open); };
    bar_->settings = [this] { show_settings(); };
    bar_->open_file = [this] { choose_and_open(); };
    bar_->open_recent = [this](const std::string& path) { open_another(path); };
    bar_->has_previous = [this] { return enabled(WindowAction::BringBack); };
    bar_->bring_previous_back = [this] { bring_previous_back(); };
    make_shortcuts(*this, *box_, [this](const Shortcut::What& what) { run(what); });
}

std::optional<std::string> MainWindow::open_dialog() {
    return ask([this] { return QFileDialog::getOpenFileName(this, "Open", {}, document_files); });
}

std::optional<std::string> MainWindow::save_dialog(const std::string& name) {
    return ask([this, &name] {
        const DocumentInfo& info = session_.box().info;
        const bool titled = info.filename.empty() && info.title != DocumentInfo().title;
        return choose_file_to_write(*this, {"Save", document_files, "json"},
                                    titled ? info.title + ".json" : name);
    });
}

/// A menu below a point of the box; what plays goes on while it is open.
std::optional<size_t> MainWindow::popup(std::span<const PopupItem> items, Point at) {
    QMenu menu(this);
    for (size_t i = 0; i < items.size(); ++i) {
        const PopupItem& item = items[i];
        if (item.separator) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(QString::fromStdString(item.text).replace("&", "&&"));
        action->setData(QVariant::fromValue(static_cast<qulonglong>(i)));
        action->setEnabled(!item.disabled);
        action->setCheckable(item.checked);
        action->setChecked(item.checked);
        if (item.icon) action->setIcon(icon_of(*item.icon));
    }
    timer_.wake();
    const QAction* chosen = menu.exec(box_->mapToGlobal(QPointF(at.x, at.y).toPoint()));
    timer_.pass_time();
    return chosen ? std::optional<size_t>(chosen->data().toULongLong()) : std::nullopt;
}

void MainWindow::keep_copy(const Object& object, const std::string& text) {
    std::string fault;
    const std::optional<std::string> path = tq::keep_copy(session_.box().info.filename, text, fault);
    kept_ = path.has_value();
    const std::string told =
        path ? "the document was not saved; a copy is in " + *path : "no copy was kept: " + fault;
    std::fprintf(stderr, "sorvo: %s\n", told.c_str());  // the console may be about to close
    object_post(object, told);
}

/// The box waits for what was chosen, and time goes on while its dialog is open.
std::optional<std::string> MainWindow::ask(const std::function<QString()>& dialog) {
    timer_.wake();
    const QString path = dialog();
    timer_.pass_time();
    return path.isEmpty() ? std::nullopt : std::optional(path.toStdString());
}

/// Nothing happens to the document before a file is chosen.
void MainWindow::choose_and_open() {
    const QString path = QFileDialog::getOpenFileName(this, "Open", {}, openable_files);
    if (!path.isEmpty()) open_another(path.toStdString());
}

/// A document takes the place of another.
void MainWindow::open_another(const std::string& path) {
    if (may_lose_document()) open(path);
}

/// Whether what is not saved may go: it is saved first if that is wanted.
bool MainWindow::may_lose_document() {
    const auto changed = [this] { return prseq_getdirtyflag(session_.box()); };
    if (!asks_ || !changed()) return true;
    QMessageBox box(QMessageBox::Question, "sorvo", "Save the changes to \"" + document_name() + "\"?",
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName("save question");
    box.setInformativeText("A copy of what is not saved is kept among your state files.");
    timer_.wake();
    const int answer = box.exec();
    timer_.pass_time();
    if (answer == QMessageBox::Save) run(Command::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && !changed());
}

void MainWindow::revert() {
    const DocumentInfo& info = session_.box().info;
    if (info.filename.empty()) return;
    const std::string path = path_in_folder(info.folder, info.filename);
    const auto answer =
        !asks_
            ? QMessageBox::Yes
            : QMessageBox::question(this, "sorvo", "Go back to \"" + document_name() + "\" as it was saved?");
    if (answer == QMessageBox::Yes) open(path);
}

void MainWindow::export_as(const ExportKind& kind) {
    const QString path = choose_file_to_write(*this, kind.question,
                                              QFileInfo(document_name()).completeBaseName().toStdString());
    if (path.isEmpty()) return;
    const std::string fault = export_with_progress(*this, session_, kind, path.toStdString());
    if (!fault.empty()) tell("could not write \"" + path.toStdString() + "\": " + fault);
}

/// Its file's, or what it is called.
QString MainWindow::document_name() const {
    const DocumentInfo& info = session_.box().info;
    const QString file = QFileInfo(QString::fromStdString(info.filename)).fileName();
    return file.isEmpty() ? QString::fromStdString(info.title) : file;
}

void MainWindow::set_full_screen(bool on) {
    if (on)
        showFullScreen();
    else
        showNormal();
}

void MainWindow::make_menus() {
    auto* menus = new QMenuBar;
    make_window_menus(
        *menus, session_.box(),
        {.act = [this](const Shortcut::What& what) { run(what); },
         .enabled = [this](const Shortcut::What& what) { return enabled(what); },
         .checked = [this](const Shortcut::What& what) { return checked(what); },
         .open = [this](const std::string& path) { open_another(path); },
         .destination =
             [this] {
                 const Track* track = track_at(session_.box(), session_.box().activetrack);
                 return track ? track->destination.text() : std::string();
             },
         .set_destination = [this](const std::string& receiver) { send("track_destination " + receiver); }});
    layout()->setMenuBar(menus);
}

bool MainWindow::enabled(const Shortcut::What& what) const {
    const Prseq& box = session_.box();
    if (const Command* command = std::get_if<Command>(&what)) return can_run(*command, box);
    switch (std::get<WindowAction>(what)) {
        case WindowAction::StopScript:
            return console_lines_->script_runs();
        case WindowAction::Revert:
            return !box.info.filename.empty();
        case WindowAction::ExportSound:
        case WindowAction::ExportMidi:
            return command_row(Command::SaveAs).enabled(box);
        case WindowAction::BringBack:
            return journal_ && has_previous_document(*journal_);
        default:
            return true;
    }
}

bool MainWindow::checked(const Shortcut::What& what) const {
    return what == Shortcut::What(WindowAction::FullScreen) ? isFullScreen()
           : what == Shortcut::What(WindowAction::Console)  ? !console_->isHidden()
                                                            : false;
}

/// In a window of its own: what is in this one stays.
void MainWindow::bring_previous_back() {
    std::optional<Recovery> recovery = journal_ ? recover_previous_document(*journal_) : std::nullopt;
    if (!recovery) return tell("there is no document to bring back");
    auto* window = new MainWindow(open_loudspeaker(), std::move(recovery->session));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->go_on_with(*recovery);
    window->show();
}

void MainWindow::go_on_with(Recovery& recovery) {
    keep_journal(go_on(session_, recovery));
    if (session_.box().playing) send("int 0");
    if (const std::string& fault = recovery.replay.fault; !fault.empty())
        tell("the session did not come back as a whole: " + fault);
    refresh();
}

void MainWindow::listen_to_loudspeaker() {
    if (!loudspeaker_.output) {
        bar_->show_status(QString::fromStdString("no audio device: " + loudspeaker_.reason));
        return;
    }
    notes_.add(*loudspeaker_.output);
    loudspeaker_.output->start(session_.host().scheduler.now());
    metronome_ = std::make_unique<Metronome>(session_, *loudspeaker_.output);
    bar_->volume = [this](double volume) { loudspeaker_.output->set_volume(volume); };
    bar_->metronome = [this](bool on) { timer_.act([this, on] { metronome_->turn(on); }); };
    bar_->show_sound([this] { return loudspeaker_.output->take_peak(); });
}

bool MainWindow::open(const std::string& path) {
    opened_ = false;
    timer_.act([this, path] {
        opened_ = session_.open(path);
        if (opened_ && session_.box().info.filename.empty()) {  // a MIDI file, which has no view of its own
            remember_file(path);
            const bool animation = session_.box().zoom_animation;
            session_.send("zoom_animation 0");
            session_.send("zoom_out_all");
            session_.send(animation ? "zoom_animation 1" : "zoom_animation 0");
        }
        if (!opened_) show_console(true);
        refresh();
    });
    return opened_;
}

void MainWindow::call(const SessionCall& call) {
    timer_.act([this, call] {
        session_.call(call);
        refresh();
    });
}

void MainWindow::send(const std::string& message) {
    timer_.act([this, message] {
        session_.send(message);
        refresh();
    });
}

void MainWindow::run(const Shortcut::What& what) {
    std::visit([this](auto wanted) { run(wanted); }, what);
}

void MainWindow::run(WindowAction action) {
    switch (action) {
        case WindowAction::Open:
            return choose_and_open();
        case WindowAction::Revert:
            return revert();
        case WindowAction::ExportSound:
            return export_as(sound_export);
        case WindowAction::ExportMidi:
            return export_as(midi_export);
        case WindowAction::ExportPicture:
            return export_as(picture_export);
        case WindowAction::BringBack:
            return bring_previous_back();
        case WindowAction::History:
            return show_history();
        case WindowAction::FullScreen:
            return set_full_screen(!isFullScreen());
        case WindowAction::Console:
            return show_console(console_->isHidden());
        case WindowAction::RunScript:
            if (console_lines_->choose_and_run()) show_console(true);
            return;
        case WindowAction::StopScript:
            return console_lines_->stop();
        case WindowAction::Settings:
            return show_settings();
        case WindowAction::Keys:
            return show_keys_page(*this);
        case WindowAction::TapTempo:
            return bar_->tap();
        case WindowAction::Quit:
            close();
    }
}

void MainWindow::run(Command command) {
    if (!can_run(command, session_.box())) return;
    timer_.act([this, command] {
        session_.call(CommandCall{command_row(command).name});
        refresh();
    });
}

void MainWindow::show_console(bool open) {
    console_->setVisible(open);
    bar_->show_console_open(open);
    if (open) {
        splitter_->setSizes({splitter_->height() - console_height, console_height});
        console_->line().setFocus();
    } else {
        box_->setFocus();
    }
}

void MainWindow::show_settings() {
    if (!settings_)
        settings_ = std::make_unique<AttributeInspector>(session_, *this,
                                                         [this](const SessionCall& made) { call(made); });
    settings_->show();
    settings_->raise();
    settings_->activateWindow();
}

void MainWindow::show_history() {
    if (!history_)
        history_ = new HistoryList(*this, session_.box(),
                                   [this](long edit) { send("undoredo " + std::to_string(edit)); });
    history_->show();
    history_->raise();
    history_->activateWindow();
}

void MainWindow::tell(const std::string& text) {
    object_post(session_.box(), text);
    show_console(true);
}

void MainWindow::remember_document() {
    const DocumentInfo& info = session_.box().info;
    std::string path = info.filename.empty() ? "" : path_in_folder(info.folder, info.filename);
    if (path == remembered_) return;
    remembered_ = std::move(path);
    if (!remembered_.empty()) remember_file(remembered_);
}

void MainWindow::refresh() {
    if (std::string fault = journal_ ? journal_->take_fault() : ""; !fault.empty())
        object_post(session_.box(), "the journal of this session cannot be written: " + fault);
    remember_document();
    const Prseq& box = session_.box();
    bar_->show_state({.playing = box.playing,
                      .loop = box.cycle.active,
                      .position = box.linecursor.position,
                      .tempo = itm_gettempo(*box.transport)});
    if (metronome_) metronome_->follow();
    if (history_) history_->follow();
    setWindowTitle(document_name() + "[*] – sorvo");
    setWindowModified(prseq_getdirtyflag(box));
}

/// Where it is on the screen, without what the desktop puts around it.
void MainWindow::tell_place() {
    const QRect place = geometry();
    const WindowCall call{double(place.x()), double(place.y()), double(place.width()),
                          double(place.height())};
    timer_.act([this, call] { session_.call(call); });
    measure_display();
}

void MainWindow::measure_display() {
    const QSizeF size = screen()->size();
    session_.host().patch.display_size = {size.width(), size.height()};
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!may_lose_document()) return event->ignore();
    inspectors_.close();
    if (settings_) settings_->close();
    Prseq& box = session_.box();
    kept_ = true;
    if (prseq_getdirtyflag(box))
        session_.host().patch.keep_copy(box, TQ_Prseq_Json_MakeDictionary(box, true));
    if (journal_ && kept_) journal_->finish();
    QWidget::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!dragged_file(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString file = dragged_file(event->mimeData());
    if (!file.isEmpty()) open_another(file.toStdString());
}

}  // namespace tq
