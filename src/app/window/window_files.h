// The window's dealings with files: what is opened, saved, exported and kept, and what is asked before.
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/journal/journal.h"
#include "app/patch/gather_sounds.h"
#include "host/patch_files.h"

namespace tq {

struct ExportKind;
struct KeptWork;
class MainWindow;
struct Recovery;
class Session;
class SessionTimer;

/// Answers what the box asks the user: for files, and for a line of a menu. What plays goes on meanwhile.
class WindowFiles : private PatchFiles {
 public:
    explicit WindowFiles(MainWindow& window);
    /// Opens a document or a Standard MIDI File, and loses what is there. False when it is neither; the
    /// console then says why.
    bool open(const std::string& path);
    /// Asks first whether what is there may be lost.
    void open_another(const std::string& path);
    /// Asks for the file as well; nothing happens to the document before one is chosen.
    void choose_and_open();
    /// Files that were dropped on a point of the box: sounds become events there, a single document or MIDI
    /// file is opened.
    void take_dropped(const std::vector<std::string>& files, Point at);
    /// Asks for sounds, which become events at the play position.
    void choose_and_add_sounds();
    /// Goes back to the document as it was saved.
    void revert();
    void export_as(const ExportKind& kind);
    /// In a window of its own: what is in this one stays.
    void bring_previous_back();
    bool has_previous() const;
    /// Lists what was not lost, and brings back what is chosen of it: here when nothing is here, and else in
    /// a window of its own.
    void choose_unsaved_work();
    void bring_back(const KeptWork& work);

    /// From now on, what is not saved is asked about before it is lost; until then, a copy is kept in
    /// silence, as when nobody is there to answer.
    void ask_before_losing() { asks_ = true; }
    /// Whether what is not saved may go: it is saved first if that is wanted.
    bool may_lose_document();
    /// The window closes. What is not saved is kept, and the journal goes when nothing can be lost.
    void finish();

    /// The session begins here, by hand: with the user's settings.
    void begin_by_hand();
    /// The session begins here, and its journal with it; says so when there is none.
    void begin_journal();
    void keep_journal(std::unique_ptr<Journal> journal) { journal_ = std::move(journal); }
    /// Goes on with a session that was brought back, which stands still first: in its own journal.
    void go_on_with(Recovery& recovery);
    /// Follows what became of the document and its journal.
    void refresh();
    /// Its file's, or what it is called.
    QString document_name() const;

 private:
    std::optional<std::string> open_dialog() override;
    std::optional<std::string> save_dialog(const std::string& name) override;
    std::optional<size_t> popup(std::span<const PopupItem> items, Point at) override;
    bool write(const std::string& path, std::string_view bytes, std::string& fault) override;
    void keep_copy(const Object& object, const std::string& text) override;
    template <typename Question>
    auto while_time_goes_on(Question question);
    template <typename Dialog>
    std::optional<std::string> ask(Dialog dialog);
    void show_all();
    void add(const std::vector<std::string>& sounds, std::optional<Point> at);
    void gather_sounds();
    bool is_blank() const;
    MainWindow& make_another(std::unique_ptr<Session> session) const;
    void open_copy(const std::string& path);
    void bring_back_session(const std::string& folder);

    MainWindow& window_;
    Session& session_;
    SessionTimer& timer_;
    bool asks_ = false;
    bool saved_ = false;      ///< by hand, and nobody has looked after its sounds so far
    SoundGatherer gatherer_;  ///< of these
    bool gathered_ = true;    ///< the document that was saved last finds all of its sounds
    bool opened_ = false;     ///< the last file that was to be opened
    bool kept_ = true;        ///< the last document that was not saved has a copy
    std::string remembered_;  ///< the document that was last put among the recent files
    std::unique_ptr<Journal> journal_;
};

}  // namespace tq
