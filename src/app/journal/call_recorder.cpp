#include "app/journal/call_recorder.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/journal/session_folder.h"
#include "app/script/framed_lines.h"
#include "app/script/lines.h"
#include "instance/utilities.h"

namespace tq {

namespace {

std::string single_line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

}  // namespace

CallRecorder::CallRecorder(Session& session, JournalFile& journal, bool fresh)
    : PatchFiles(session.host().patch),
      session_(session),
      journal_(journal),
      written_(session.host().scheduler.now()) {
    session_.listen_to_calls(this);
    begin(fresh);
    session_.host().patch.buffer_changed = [this](Symbol name) {
        note(line_text(sound_call(session_.host(), name)));
    };
    witness_crashes(*this);
}

CallRecorder::~CallRecorder() {
    forget_witness(*this);
    session_.listen_to_calls(nullptr);
    session_.host().patch.buffer_changed = PatchEars().buffer_changed;
}

void CallRecorder::begin(bool fresh) {
    if (fresh) text_ = journal_head;
    std::error_code ignored;
    text_ += working_folder_note;
    text_ += single_line(std::filesystem::current_path(ignored).string()) + "\n";
    note(line_text(ReplayLine{}));
    if (!fresh) return;
    for (const auto& [name, buffer] : session_.host().buffers)
        note(line_text(sound_call(session_.host(), name)));
    session_.call(SeedCall{time_seed()});
}

/// What becomes of a buffer is told as it happens.
void CallRecorder::calling(const SessionCall& call) {
    wait_until(now());
    line_ = std::holds_alternative<SoundCall>(call) ? "# sound" : line_text(call);
    running_ = true;
    const Prseq& box = session_.box();
    emptied_ = box.info.emptied;
    had_document_ = !box.tracks.empty() || prseq_getdirtyflag(box) || !box.info.filename.empty();
}

void CallRecorder::called() {
    running_ = false;
    if (had_document_ && session_.box().info.emptied != emptied_) note(replaced_note);
    note(line_);
    written_ = now();
    note_document();
    journal_.append(text_);
    text_.clear();
}

/// A replay must not do what broke the program; a report of the fault should have it.
void CallRecorder::crashed() noexcept {
    if (running_)
        journal_.write_in_a_crash(
            {text_, "# in ", std::string_view(line_).substr(0, line_.find('\n')), "\n"});
    else
        journal_.write_in_a_crash({text_});
}

void CallRecorder::wait_until(double time) {
    if (time > written_) note(line_text(WaitLine{time - written_}));
    written_ = std::max(written_, time);
}

void CallRecorder::note(std::string_view line) { append_framed(text_, line); }

/// For whoever is asked whether this session is to come back.
void CallRecorder::note_document() {
    const DocumentInfo& info = session_.box().info;
    if (prseq_getdirtyflag(session_.box()) && !std::exchange(edited_, true)) note(edited_note);
    if (info.filename == document_) return;
    document_ = info.filename;
    note(std::string(document_note) + single_line(path_in_folder(info.folder, info.filename)));
}

/// How long the dialog was open is part of the answer: time passed meanwhile.
std::optional<std::string> CallRecorder::note_answer(double asked, std::optional<std::string> answer) {
    note(line_text(AnswerLine{answer, now() - asked}));
    return answer;
}

std::optional<std::string> CallRecorder::open_dialog() {
    const double asked = now();
    return note_answer(asked, PatchFiles::open_dialog());
}

std::optional<std::string> CallRecorder::save_dialog(const std::string& name) {
    const double asked = now();
    return note_answer(asked, PatchFiles::save_dialog(name));
}

std::optional<size_t> CallRecorder::popup(std::span<const PopupItem> items, Point at) {
    const double asked = now();
    const std::optional<size_t> chosen = PatchFiles::popup(items, at);
    ChooseLine choice{{}, {}, now() - asked};
    if (chosen) {
        choice.text = items[*chosen].text;
        choice.index = static_cast<long>(*chosen);
    }
    note(line_text(choice));
    return chosen;
}

std::optional<LocatedFile> CallRecorder::locate(const std::string& name, const std::string& folder) {
    std::optional<LocatedFile> found = PatchFiles::locate(name, folder);
    note(line_text(found ? FileLine{FileLine::Kind::Found, path_in_folder(found->folder, found->name)}
                         : FileLine{FileLine::Kind::Missing, ""}));
    return found;
}

FileBytes CallRecorder::read(const std::string& path, std::string& fault) {
    FileBytes bytes = PatchFiles::read(path, fault);
    if (!bytes) {
        note(line_text(FileLine{FileLine::Kind::Unreadable, fault}));
        return bytes;
    }
    journal_.append(text_);
    text_.clear();
    journal_.keep(bytes);
    return bytes;
}

bool CallRecorder::write(const std::string& path, std::string_view bytes, std::string& fault) {
    const bool written = PatchFiles::write(path, bytes, fault);
    note(line_text(written ? FileLine{FileLine::Kind::Written, ""}
                           : FileLine{FileLine::Kind::Unwritable, fault}));
    return written;
}

}  // namespace tq
