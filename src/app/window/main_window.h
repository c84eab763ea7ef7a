// The program's window: the box in its patch, heard through the synthesiser.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "app/journal/journal.h"
#include "app/patch/loudspeaker.h"
#include "app/patch/metronome.h"
#include "app/patch/note_listener.h"
#include "app/patch/session.h"
#include "app/patch/sound_files.h"
#include "app/window/inspector_windows.h"
#include "app/window/session_timer.h"
#include "app/window/shortcuts.h"

class QSplitter;

namespace tq {

class AttributeInspector;
class BoxWidget;
class Console;
class ConsoleLines;
class HistoryList;
struct ExportKind;
struct Recovery;
class TransportBar;

class MainWindow : public QWidget, private PatchFiles {
 public:
    explicit MainWindow(Loudspeaker loudspeaker,
                        std::unique_ptr<Session> session = std::make_unique<Session>());
    ~MainWindow() override;
    /// Opens a document or a Standard MIDI File. False when it is neither; the console then says why.
    bool open(const std::string& path);
    /// The session's journal, from now on; it goes when the window is closed and nothing can be lost.
    void keep_journal(std::unique_ptr<Journal> journal) { journal_ = std::move(journal); }
    /// Goes on with a session that was brought back, which stands still first: in its own journal.
    void go_on_with(Recovery& recovery);
    /// From now on, what is not saved is asked about before it is closed or replaced by a file; until then, a
    /// copy is kept in silence, as when nobody is there to answer.
    void ask_before_losing() { asks_ = true; }
    /// Says something on the console, and shows it.
    void tell(const std::string& text);
    Session& session() { return session_; }
    SessionTimer& timer() { return timer_; }
    BoxWidget& box() { return *box_; }
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
    std::optional<std::string> open_dialog() override;
    std::optional<std::string> save_dialog(const std::string& name) override;
    std::optional<size_t> popup(std::span<const PopupItem> items, Point at) override;
    void keep_copy(const Object& object, const std::string& text) override;
    std::optional<std::string> ask(const std::function<QString()>& dialog);
    void send(const std::string& message);
    void make_menus();
    bool enabled(const Shortcut::What& what) const;
    bool checked(const Shortcut::What& what) const;
    void choose_and_open();
    void open_another(const std::string& path);
    bool may_lose_document();
    void revert();
    void export_as(const ExportKind& kind);
    void set_full_screen(bool on);
    QString document_name() const;
    void bring_previous_back();
    /// A command of the box.
    void run(Command command);
    void run(WindowAction action);
    void run(const Shortcut::What& what);
    void show_console(bool open);
    void show_settings();
    void show_history();
    void remember_document();

    Loudspeaker loudspeaker_;  ///< outlives the session, whose notes it plays
    std::unique_ptr<Session> own_session_;
    Session& session_;
    SoundFiles sounds_{session_};
    SessionTimer timer_;
    NoteListener notes_;
    std::unique_ptr<Metronome> metronome_;  ///< none without a loudspeaker
    BoxWidget* box_;
    Console* console_;
    std::unique_ptr<ConsoleLines> console_lines_;
    TransportBar* bar_;
    QSplitter* splitter_;
    bool asks_ = false;
    bool opened_ = false;     ///< the last file that was to be opened
    bool kept_ = true;        ///< the last document that was not saved has a copy
    std::string remembered_;  ///< the document that was last put among the recent files
    std::unique_ptr<Journal> journal_;
    InspectorWindows inspectors_;
    std::unique_ptr<AttributeInspector> settings_;  ///< none before it is opened
    HistoryList* history_ = nullptr;                ///< likewise
};

}  // namespace tq
