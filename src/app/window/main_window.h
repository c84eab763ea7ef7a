// The program's window: the box in its patch, heard through the synthesiser.
#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <string>

#include "app/patch/loudspeaker.h"
#include "app/patch/metronome.h"
#include "app/patch/note_listener.h"
#include "app/patch/session.h"
#include "app/patch/sound_files.h"
#include "app/window/inspector_windows.h"
#include "app/window/session_timer.h"
#include "app/window/shortcuts.h"
#include "app/window/window_files.h"

class QSplitter;

namespace tq {

class AttributeInspector;
class BoxWidget;
class Console;
class ConsoleLines;
class EditDialog;
class EmptyHint;
class EventTable;
class HistoryList;
class TrackLevels;
class TransportBar;
struct EditDialogRow;

class MainWindow : public QWidget {
 public:
    explicit MainWindow(Loudspeaker loudspeaker,
                        std::unique_ptr<Session> session = std::make_unique<Session>());
    ~MainWindow() override;
    Session& session() { return session_; }
    SessionTimer& timer() { return timer_; }
    BoxWidget& box() { return *box_; }
    WindowFiles& files() { return files_; }
    SoundFiles& sounds() { return sounds_; }
    /// Looks as it did the last time, and the next time as now.
    void keep_looks();
    /// Says something on the console, and shows it.
    void tell(const std::string& text);
    void show_console(bool open);
    /// Whether a line of the console, or of a script that it runs, is being run: no person's hand.
    bool runs_line() const;
    /// Says in the bar what has been done.
    void say(const std::string& text);
    /// Sends the box a message in message text.
    void send(const std::string& message);
    /// Does what a menu or a key wants, if it can be done now.
    void run(const Shortcut::What& what);
    /// Shows what the session has become.
    void refresh();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent*) override { tell_place(); }
    void resizeEvent(QResizeEvent*) override { tell_place(); }
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    void build();
    void tell_place();
    void measure_display();
    void call(const SessionCall& call);
    void connect_parts();
    void listen_to_loudspeaker();
    void make_menus();
    bool show_track_menu(QPoint at);
    void rename_track();
    void make_keys();
    void save_looks();
    bool enabled(const Shortcut::What& what) const;
    bool checked(const Shortcut::What& what) const;
    void set_full_screen(bool on);
    /// A command of the box.
    void run(Command command);
    void run(WindowAction action);
    void show_settings();
    void show_history();
    void show_levels();
    void show_events();
    void show_edit_dialog(const EditDialogRow& row);

    Loudspeaker loudspeaker_;  ///< outlives the session, whose notes it plays
    std::unique_ptr<Session> own_session_;
    Session& session_;
    SoundFiles sounds_{session_};
    SessionTimer timer_;
    NoteListener notes_;
    std::unique_ptr<Metronome> metronome_;  ///< none without a loudspeaker
    BoxWidget* box_;
    WindowFiles files_{*this};
    Console* console_;
    std::unique_ptr<ConsoleLines> console_lines_;
    TransportBar* bar_;
    QSplitter* splitter_;
    InspectorWindows inspectors_;
    std::unique_ptr<AttributeInspector> settings_;  ///< none before it is opened
    bool keeps_looks_ = false;
    EmptyHint* hint_ = nullptr;                         ///< none where nobody works by hand
    int console_height_ = 160;                          ///< the next time that it opens
    HistoryList* history_ = nullptr;                    ///< likewise
    EventTable* events_ = nullptr;                      ///< likewise
    TrackLevels* levels_ = nullptr;                     ///< likewise
    std::map<WindowAction, EditDialog*> edit_dialogs_;  ///< those that were opened
};

}  // namespace tq
