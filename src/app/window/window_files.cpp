#include "app/window/window_files.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <fmt/ranges.h>

#include <cstdio>
#include <filesystem>
#include <utility>

#include "app/journal/kept_work.h"
#include "app/journal/recovery.h"
#include "app/patch/add_sounds.h"
#include "app/patch/box_settings.h"
#include "app/patch/kept_copies.h"
#include "app/patch/recent_files.h"
#include "app/window/box_widget.h"
#include "app/window/export_dialog.h"
#include "app/window/kept_work_dialog.h"
#include "app/window/main_window.h"
#include "app/window/popup.h"
#include "file/document_writer.h"
#include "host/files.h"

namespace tq {

namespace {

const char *const document_files = "Documents (*.sorvo *.json);;All files (*)",
                  *const openable_files =
                      "Documents and MIDI files (*.sorvo *.json *.mid *.midi);;All files (*)",
                  *const sound_files =
                      "Sounds (*.wav *.flac *.aif *.aiff *.ogg *.WAV *.FLAC *.AIF *.AIFF "
                      "*.OGG);;All files (*)";

}  // namespace

WindowFiles::WindowFiles(MainWindow& window)
    : PatchFiles(window.session().host().patch),
      window_(window),
      session_(window.session()),
      timer_(window.timer()) {}

/// The box waits for what is answered, and what plays goes on meanwhile.
template <typename Question>
auto WindowFiles::while_time_goes_on(Question question) {
    timer_.wake();
    auto answer = question();
    timer_.pass_time();
    return answer;
}

/// A path, or none where nothing was chosen.
template <typename Dialog>
std::optional<std::string> WindowFiles::ask(Dialog dialog) {
    const QString path = while_time_goes_on(dialog);
    return path.isEmpty() ? std::nullopt : std::optional(path.toStdString());
}

std::optional<std::string> WindowFiles::open_dialog() {
    return ask(
        [this] { return choose_file_to_open(window_, "Open", document_files, session_.box().info.folder); });
}

std::optional<std::string> WindowFiles::save_dialog(const std::string& name) {
    return ask([this, &name] {
        const DocumentInfo& info = session_.box().info;
        const bool is_new = info.filename.empty(), titled = info.title != DocumentInfo().title;
        const std::string plain = titled ? info.title : std::filesystem::path(name).stem().string();
        return choose_file_to_write(window_, {"Save", document_files, "sorvo"},
                                    is_new ? plain + ".sorvo" : name);
    });
}

std::optional<size_t> WindowFiles::popup(std::span<const PopupItem> items, Point at) {
    return while_time_goes_on([&] { return choose_below(window_.box(), at, items); });
}

void WindowFiles::keep_copy(const Object& object, const std::string& text) {
    std::string fault;
    const std::optional<std::string> path = tq::keep_copy(session_.box().info.filename, text, fault);
    kept_ = path.has_value();
    const std::string told =
        path ? "the document was not saved; a copy is in " + *path : "no copy was kept: " + fault;
    std::fprintf(stderr, "sorvo: %s\n", told.c_str());  // the console may be about to close
    object_post(object, told);
}

bool WindowFiles::open(const std::string& path) {
    opened_ = false;
    timer_.act([this, path] {
        opened_ = session_.open(path);
        if (opened_ && session_.box().info.filename.empty()) {
            remember_file(path);
            show_all();
        }
        if (!opened_) window_.show_console(true);
        window_.refresh();
    });
    return opened_;
}

/// A MIDI file has no view of its own.
void WindowFiles::show_all() {
    const bool animation = session_.box().zoom_animation;
    session_.send("zoom_animation 0");
    session_.send("zoom_out_all");
    session_.send(animation ? "zoom_animation 1" : "zoom_animation 0");
}

void WindowFiles::choose_and_open() {
    const QString path = choose_file_to_open(window_, "Open", openable_files, session_.box().info.folder);
    if (!path.isEmpty()) open_another(path.toStdString());
}

void WindowFiles::open_another(const std::string& path) {
    if (may_lose_document()) open(path);
}

void WindowFiles::take_dropped(const std::vector<std::string>& files, Point at) {
    if (files.empty()) return;
    if (files.size() == 1 && !has_sound_ending(files.front())) return open_another(files.front());
    add(files, at);
}

void WindowFiles::choose_and_add_sounds() {
    std::vector<std::string> files;
    for (const QString& path : choose_files_to_open(window_, "Add Sound", sound_files))
        files.push_back(path.toStdString());
    if (!files.empty()) add(files, {});
}

/// At the point of the box, or at the play position.
void WindowFiles::add(const std::vector<std::string>& sounds, std::optional<Point> at) {
    timer_.act([this, sounds, at] {
        const Prseq& box = session_.box();
        const SoundPlace place = at ? place_at(box, *at) : place_at_position(box);
        if (!add_sounds(session_, window_.sounds(), sounds, place)) window_.show_console(true);
        window_.refresh();
    });
}

/// Of documents alone: nothing else that a person writes takes this way.
bool WindowFiles::write(const std::string& path, std::string_view bytes, std::string& fault) {
    const bool written = PatchFiles::write(path, bytes, fault);
    saved_ = saved_ || (written && asks_ && !window_.runs_line());
    return written;
}

void WindowFiles::gather_sounds() {
    const GatheredSounds gathered = gatherer_.gather(session_.box());
    if (!gathered.copied.empty())
        window_.say(fmt::format("Copied beside the document: {}", fmt::join(gathered.copied, ", ")));
    gathered_ = gathered.told.empty();
    for (const std::string& text : gathered.told) window_.tell(text);
}

/// What is told of its sounds can be read before a document that was saved goes.
bool WindowFiles::may_lose_document() {
    const auto changed = [this] { return prseq_getdirtyflag(session_.box()); };
    if (!asks_ || !changed()) return true;
    QMessageBox box(QMessageBox::Question, "sorvo", "Save the changes to \"" + document_name() + "\"?",
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box.setObjectName("save question");
    box.button(QMessageBox::Save)->setText("&Save");  // some desktops leave out what can be pressed with Alt
    box.button(QMessageBox::Discard)->setText("&Don't Save");
    box.button(QMessageBox::Cancel)->setText("&Cancel");
    box.setInformativeText("A copy of what is not saved is kept among your state files.");
    const int answer = while_time_goes_on([&] { return box.exec(); });
    if (answer == QMessageBox::Save) window_.run(Shortcut::What(Command::Save));
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && !changed() && gathered_);
}

void WindowFiles::revert() {
    const DocumentInfo& info = session_.box().info;
    if (info.filename.empty()) return;
    const std::string path = path_in_folder(info.folder, info.filename);
    const auto answer =
        !asks_ ? QMessageBox::Yes
               : QMessageBox::question(&window_, "sorvo",
                                       "Go back to \"" + document_name() + "\" as it was saved?");
    if (answer == QMessageBox::Yes) open(path);
}

void WindowFiles::export_as(const ExportKind& kind) {
    const QString path = choose_file_to_write(window_, kind.question,
                                              QFileInfo(document_name()).completeBaseName().toStdString());
    if (path.isEmpty()) return;
    const ExportEnd end = export_with_progress(window_, session_, kind, path.toStdString());
    if (end.written) return window_.say("Wrote " + path.toStdString());
    window_.say("");
    if (!end.fault.empty()) window_.tell("could not write \"" + path.toStdString() + "\": " + end.fault);
}

void WindowFiles::bring_previous_back() {
    std::optional<Recovery> recovery = journal_ ? recover_previous_document(*journal_) : std::nullopt;
    if (!recovery) return window_.tell("there is no document to bring back");
    MainWindow& window = make_another(std::move(recovery->session));
    window.files().go_on_with(*recovery);
    window.show();
}

/// Not shown yet; it goes when it is closed.
MainWindow& WindowFiles::make_another(std::unique_ptr<Session> session) const {
    auto* window = new MainWindow(open_loudspeaker(), std::move(session));
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (asks_) {
        window->files().ask_before_losing();
        window->keep_looks();
        constexpr QPoint aside{30, 30};  // so that both are seen
        window->move(window->pos() + aside);
    }
    return *window;
}

void WindowFiles::choose_unsaved_work() {
    KeptWorkFound found = find_kept_work();
    for (const std::string& note : found.notes) window_.tell(note);
    if (const std::optional<KeptWork> work = choose_kept_work(std::move(found.work), &window_))
        bring_back(*work);
}

bool WindowFiles::is_blank() const {
    const Prseq& box = session_.box();
    return box.tracks.empty() && box.history.items.empty() && box.info.filename.empty();
}

void WindowFiles::bring_back(const KeptWork& work) {
    if (work.kind == KeptWork::Kind::Session) return bring_back_session(work.path.string());
    if (is_blank()) return open_copy(work.path.string());
    MainWindow& window = make_another(std::make_unique<Session>());
    window.files().begin_journal();
    window.files().begin_by_hand();
    window.show();
    window.files().open_copy(work.path.string());
}

/// A session has a window of its own from the first; that of a blank one makes room for it.
void WindowFiles::bring_back_session(const std::string& folder) {
    std::optional<Recovery> recovery = recover(folder);
    if (!recovery) return window_.tell("the session cannot be brought back: it runs, or cannot be read");
    MainWindow& window = make_another(std::move(recovery->session));
    window.files().go_on_with(*recovery);
    const QRect place = window_.geometry();
    window.show();
    if (!is_blank()) return;
    window.setGeometry(place);
    window_.close();
}

/// Once the journal has all of it, nobody needs the file.
void WindowFiles::open_copy(const std::string& path) {
    timer_.act([this, path] {
        const bool opened = session_.call(OpenCall{path, true});
        if (!opened) return window_.tell("the copy stays where it is: " + path);
        window_.refresh();
        std::error_code ignored;
        if (journal_ && journal_->drain()) std::filesystem::remove(path, ignored);
    });
}

void WindowFiles::begin_by_hand() {
    std::string fault;
    for (const MessageCall& message : first_messages(fault)) session_.call(message);
    if (!fault.empty()) object_error(session_.box(), "the settings were not read: " + fault);
    if (is_blank()) session_.call(CommandCall{command_row(Command::New).name});  // by these settings
}

void WindowFiles::begin_journal() {
    std::string fault;
    if (std::optional<SessionFolder> folder = SessionFolder::make(fault))
        keep_journal(std::make_unique<Journal>(session_, std::move(*folder), true));
    else
        window_.tell("this session has no journal: " + fault);
}

void WindowFiles::go_on_with(Recovery& recovery) {
    keep_journal(go_on(session_, recovery));
    if (session_.box().playing) window_.send("int 0");
    if (const std::string& fault = recovery.replay.fault; !fault.empty())
        window_.tell("the session did not come back as a whole: " + fault);
    window_.refresh();
}

bool WindowFiles::has_previous() const { return journal_ && has_previous_document(*journal_); }

void WindowFiles::refresh() {
    if (std::string fault = journal_ ? journal_->take_fault() : ""; !fault.empty())
        object_post(session_.box(), "the journal of this session cannot be written: " + fault);
    if (std::exchange(saved_, false)) gather_sounds();
    const DocumentInfo& info = session_.box().info;
    std::string path = info.filename.empty() ? "" : path_in_folder(info.folder, info.filename);
    if (path == remembered_) return;
    remembered_ = std::move(path);
    if (!remembered_.empty()) remember_file(remembered_);
}

void WindowFiles::finish() {
    Prseq& box = session_.box();
    kept_ = true;
    if (prseq_getdirtyflag(box))
        session_.host().patch.keep_copy(box, TQ_Prseq_Json_MakeDictionary(box, true));
    if (journal_ && kept_) journal_->finish();
}

QString WindowFiles::document_name() const {
    const DocumentInfo& info = session_.box().info;
    const QString file = QFileInfo(QString::fromStdString(info.filename)).fileName();
    return file.isEmpty() ? QString::fromStdString(info.title) : file;
}

}  // namespace tq
