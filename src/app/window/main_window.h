// The program's window: the box in its patch, heard through the synthesiser.
#pragma once

#include <QWidget>
#include <string>

#include "app/patch/loudspeaker.h"
#include "app/patch/note_listener.h"
#include "app/patch/session.h"
#include "app/window/session_timer.h"

class QSplitter;

namespace tq {

class BoxWidget;
class Console;
class TransportBar;

class MainWindow : public QWidget {
 public:
    explicit MainWindow(Loudspeaker loudspeaker);
    ~MainWindow() override;
    /// Opens a document or a Standard MIDI File. False when it is neither; the console then says why.
    bool open(const std::string& path);
    Session& session() { return session_; }

 protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    void build();
    void connect_parts();
    void listen_to_loudspeaker();
    void send(const std::string& message);
    void toggle_play();
    void show_console(bool open);
    void refresh();

    Loudspeaker loudspeaker_;  ///< outlives the session, whose notes it plays
    Session session_;
    SessionTimer timer_;
    NoteListener notes_;
    BoxWidget* box_;
    Console* console_;
    TransportBar* bar_;
    QSplitter* splitter_;
    bool opened_ = false;  ///< the last file that was to be opened
};

}  // namespace tq
