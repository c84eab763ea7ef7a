#include "app/window/main_window.h"

#include <QDragEnterEvent>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/patch/exact_atom.h"
#include "app/window/attribute_inspector.h"
#include "app/window/box_widget.h"
#include "app/window/console.h"
#include "app/window/console_lines.h"
#include "app/window/dropped_files.h"
#include "app/window/edit_dialogs.h"
#include "app/window/empty_hint.h"
#include "app/window/event_table.h"
#include "app/window/export_dialog.h"
#include "app/window/history_list.h"
#include "app/window/keys_page.h"
#include "app/window/pointer_text.h"
#include "app/window/track_levels.h"
#include "app/window/transport_bar.h"
#include "app/window/window_menus.h"
#include "app/window/window_state.h"
#include "instance/change.h"
#include "instance/geometry.h"
#include "model/bars.h"
#include "model/selected_events.h"
#include "model/tracks.h"
#include "view/trackdisplay.h"

namespace tq {

namespace {

constexpr int first_width = 1200, first_height = 740;

void bring_to_front(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

/// A shortcut does what the item of a menu would, where that can be chosen. Undo and redo first end what
/// is under way, which they may then be about, and saving asks for a name.
bool can_run(Command command, const Prseq& box) {
    const bool looks_for_itself = command == Command::Undo || command == Command::Redo ||
                                  command == Command::Save ||
                                  command == Command::ZoomOutAll;  // also where only the timeline has grown
    return looks_for_itself || command_row(command).enabled(box);
}

/// Whether a menu offers it: who opens one has nothing under way that undo could be about.
bool can_choose(Command command, const Prseq& box) {
    const bool steps = command == Command::Undo || command == Command::Redo;
    return steps ? command_row(command).enabled(box) : can_run(command, box);
}

/// Those that sound alone, by name.
QString solo_tracks(const Prseq& box) {
    QStringList names;
    for (const TrackRef& track : box.tracks)
        if (track->solo) names << QString::fromStdString(track->name);
    return names.join(", ");
}

}  // namespace

MainWindow::MainWindow(Loudspeaker loudspeaker, std::unique_ptr<Session> session)
    : loudspeaker_(std::move(loudspeaker)),
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
    box_->menu_at = [this](QPoint at) { return show_track_menu(at); };
    box_->tip_at = [this](QPoint at) { return tip_at(session_.box(), at); };
    box_->pointed = [this](std::optional<QPoint> at) {
        bar_->show_pointer(at ? pointer_text(session_.box(), *at) : QString());
    };
    box_->painted = [this] { refresh(); };
    console_->entered = [this](const std::vector<std::string>& lines) { console_lines_->run(lines); };
    bar_->play_or_stop = [this] { run(Command::PlayOrStop); };
    bar_->go_to_start = [this] { run(Command::GoToStart); };
    bar_->position = [this](double ms) { call(MessageCall{gensym("position"), {exact_atom(ms)}, {}}); };
    bar_->loop_selection = [this] { run(Command::LoopSelection); };
    bar_->send = [this](const std::string& message) { send(message); };
    bar_->end_solo = [this] {
        for (const TrackRef& track : session_.box().tracks)
            if (track->solo) send("track_solo " + std::to_string(track->index) + " 0");
    };
    bar_->leave = [this] { box_->setFocus(); };
    bar_->loop = [this](bool on) { send(on ? "cycle 1" : "cycle 0"); };
    bar_->tempo = [this](double bpm) { call(TempoCall{bpm}); };
    bar_->console = [this](bool open) { show_console(open); };
    bar_->open_file = [this] { files_.choose_and_open(); };
    bar_->open_recent = [this](const std::string& path) { files_.open_another(path); };
    bar_->has_previous = [this] { return files_.has_previous(); };
    bar_->bring_previous_back = [this] { files_.bring_previous_back(); };
    make_keys();
}

void MainWindow::make_keys() {
    make_shortcuts(*this, *box_, [this](const Shortcut::What& what) { run(what); });
}

void MainWindow::set_full_screen(bool on) {
    if (on)
        showFullScreen();
    else
        showNormal();
}

void MainWindow::make_menus() {
    auto* menus = new QMenuBar;
    make_window_menus(*menus, session_.box(),
                      {.act = [this](const Shortcut::What& what) { run(what); },
                       .enabled = [this](const Shortcut::What& what) { return enabled(what); },
                       .checked = [this](const Shortcut::What& what) { return checked(what); },
                       .open = [this](const std::string& path) { files_.open_another(path); },
                       .destination =
                           [this] {
                               const Track* track = track_at(session_.box(), session_.box().activetrack);
                               return track ? track->destination.text() : std::string();
                           },
                       .send = [this](const std::string& message) { send(message); }});
    layout()->setMenuBar(menus);
}

/// Of the track below the pointer, which becomes the active one, or of the list.
bool MainWindow::show_track_menu(QPoint at) {
    const Prseq& box = session_.box();
    const Rect& list = box.layout[Part::TrackDisplay];
    if (!TQRectContainsPoint(list, at.x(), at.y())) return false;
    const long track = TQ_Prseq_Trackdisplay_WhatTrack(box, at.x() - list.x, at.y() - list.y);
    if (track >= 0 && track != box.activetrack) send("track_active " + std::to_string(track));
    findChild<QMenu*>("Track")->popup(box_->mapToGlobal(at));
    return true;
}

void MainWindow::rename_track() {
    const Prseq& box = session_.box();
    const TrackRef track = track_at(box, box.activetrack);
    if (!track) return;
    bool agreed = false;
    const QString name = QInputDialog::getText(this, "Rename Track", "Name:", QLineEdit::Normal,
                                               QString::fromStdString(track->name), &agreed);
    if (agreed && !name.isEmpty() && track->index >= 0)  // it may have gone meanwhile
        call(MessageCall{gensym("track_name"), {track->index, gensym(name.toStdString())}, {}});
}

bool MainWindow::enabled(const Shortcut::What& what) const {
    const Prseq& box = session_.box();
    if (const Command* command = std::get_if<Command>(&what)) return can_choose(*command, box);
    const auto action = std::get<WindowAction>(what);
    if (const EditDialogRow* row = find_edit_dialog(action))
        return !row->of_selection || has_selected_events(box);
    switch (action) {
        case WindowAction::StopScript:
            return console_lines_->script_runs();
        case WindowAction::Revert:
            return !box.info.filename.empty();
        case WindowAction::ExportSound:
        case WindowAction::ExportLoudSound:
        case WindowAction::ExportMidi:
            return command_row(Command::SaveAs).enabled(box);
        case WindowAction::BringBack:
            return files_.has_previous();
        default:
            return true;
    }
}

bool MainWindow::checked(const Shortcut::What& what) const {
    return what == Shortcut::What(WindowAction::FullScreen) ? isFullScreen()
           : what == Shortcut::What(WindowAction::Console)  ? !console_->isHidden()
                                                            : false;
}

void MainWindow::listen_to_loudspeaker() {
    if (!loudspeaker_.output) {
        bar_->show_status(QString::fromStdString("no sound: " + loudspeaker_.reason));
        return;
    }
    notes_.add(*loudspeaker_.output);
    loudspeaker_.output->start(session_.host().scheduler.now());
    metronome_ = std::make_unique<Metronome>(session_, *loudspeaker_.output);
    bar_->volume = [this](double volume) { loudspeaker_.output->set_volume(volume); };
    bar_->metronome = [this](bool on) { timer_.act([this, on] { metronome_->turn(on); }); };
    bar_->show_sound([this] { return loudspeaker_.output->take_peak(); });
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
    if (const EditDialogRow* row = find_edit_dialog(action)) return show_edit_dialog(*row);
    switch (action) {
        case WindowAction::Open:
            return files_.choose_and_open();
        case WindowAction::Revert:
            return files_.revert();
        case WindowAction::ExportSound:
            return files_.export_as(sound_export);
        case WindowAction::ExportLoudSound:
            return files_.export_as(loud_sound_export);
        case WindowAction::ExportMidi:
            return files_.export_as(midi_export);
        case WindowAction::ExportPicture:
            return files_.export_as(picture_export);
        case WindowAction::BringBack:
            return files_.bring_previous_back();
        case WindowAction::UnsavedWork:
            return files_.choose_unsaved_work();
        case WindowAction::AddSound:
            return files_.choose_and_add_sounds();
        case WindowAction::History:
            return show_history();
        case WindowAction::RenameTrack:
            return rename_track();
        case WindowAction::Levels:
            return show_levels();
        case WindowAction::Events:
            return show_events();
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
            return show_keys_page(*this, [this] { make_keys(); });
        case WindowAction::TapTempo:
            return bar_->tap();
        case WindowAction::Quit:
            close();
            return;
        default:
            return;  // a dialog's, see above
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
    if (!console_->isHidden()) console_height_ = splitter_->sizes().last();
    const bool opens = open && console_->isHidden();
    console_->setVisible(open);
    bar_->show_console_open(open);
    if (open) {
        if (opens) splitter_->setSizes({splitter_->height() - console_height_, console_height_});
        console_->line().setFocus();
    } else {
        box_->setFocus();
    }
}

void MainWindow::keep_looks() {
    keeps_looks_ = true;
    hint_ = new EmptyHint(*box_, session_.box());
    keep_place(*this, "main");
    const std::unique_ptr<QSettings> kept = window_state();
    bar_->restore(*kept);
    console_->restore(*kept);
    console_height_ = std::max(kept->value("console/height", console_height_).toInt(), 1);
    if (kept->value("console/open").toBool()) show_console(true);
    box_->setFocus();
}

void MainWindow::save_looks() {
    const std::unique_ptr<QSettings> kept = window_state();
    bar_->keep(*kept);
    console_->keep(*kept);
    const bool open = !console_->isHidden();
    kept->setValue("console/open", open);
    kept->setValue("console/height", open ? splitter_->sizes().last() : console_height_);
}

void MainWindow::show_settings() {
    if (!settings_)
        settings_ = std::make_unique<AttributeInspector>(session_, *this,
                                                         [this](const SessionCall& made) { call(made); });
    bring_to_front(*settings_);
}

void MainWindow::show_history() {
    if (!history_)
        history_ = new HistoryList(*this, session_.box(),
                                   [this](long edit) { send("undoredo " + std::to_string(edit)); });
    bring_to_front(*history_);
}

void MainWindow::show_levels() {
    if (!levels_)
        levels_ =
            new TrackLevels(*this, session_.box(), [this](const std::string& message) { send(message); });
    bring_to_front(*levels_);
}

void MainWindow::show_edit_dialog(const EditDialogRow& row) {
    EditDialog*& dialog = edit_dialogs_[row.action];
    if (!dialog)
        dialog = new EditDialog(*this, row,
                                {.send = [this](const std::string& message) { send(message); },
                                 .wants = [this](const Shortcut::What& what) { run(what); }});
    bring_to_front(*dialog);
}

void MainWindow::show_events() {
    if (!events_)
        events_ = new EventTable(*this, session_.box(),
                                 {.calls = [this](const SessionCall& made) { call(made); },
                                  .wants = [this](const Shortcut::What& what) { run(what); }});
    bring_to_front(*events_);
}

void MainWindow::tell(const std::string& text) {
    object_post(session_.box(), text);
    show_console(true);
    box_->setFocus();  // who works there goes on
}

bool MainWindow::runs_line() const { return console_lines_ && console_lines_->speaking(); }

void MainWindow::say(const std::string& text) { bar_->show_status(QString::fromStdString(text)); }

void MainWindow::refresh() {
    files_.refresh();
    const Prseq& box = session_.box();
    bar_->show_state({.playing = box.playing,
                      .loop = box.cycle.active,
                      .position = box.linecursor.position,
                      .tempo = itm_gettempo(*box.transport),
                      .snap = box.snaptime,
                      .division = {box.snap_division, first_beat(box.meter)},
                      .solo = solo_tracks(box)});
    if (metronome_) metronome_->follow();
    if (history_) history_->follow();
    if (levels_) levels_->follow();
    if (hint_) hint_->follow();
    if (events_) events_->follow();
    setWindowTitle(files_.document_name() + "[*] – sorvo");
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
    if (!files_.may_lose_document()) return event->ignore();
    inspectors_.close();
    if (settings_) settings_->close();
    files_.finish();
    if (keeps_looks_) save_looks();
    QWidget::closeEvent(event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) { take_files(*event); }

void MainWindow::dropEvent(QDropEvent* event) {
    const QPointF at = box_->mapFrom(this, event->position());
    files_.take_dropped(take_files(*event), {at.x(), at.y()});
}

}  // namespace tq
