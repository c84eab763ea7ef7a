#include "app/journal/recovery.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "app/journal/crash_note.h"
#include "app/journal/journal_file.h"
#include "app/script/driver.h"
#include "app/script/framed_lines.h"
#include "host/files.h"
#include "host/state_folder.h"
#include "host/write_bytes.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// A replay that breaks the program down leaves the number of the line that did, and the next one stops
/// before it.
fs::path broken_line_path(const fs::path& folder) { return folder / "broken-line"; }

/// Nobody hears what the box says, and nothing is painted. Kept files tell their size and checksum by their
/// names; one that is not what it was is no use.
class ReplayDriver : public Driver, private CrashWitness {
 public:
    ReplayDriver(Session& session, const fs::path& folder)
        : Driver(session), folder_(folder), broken_line_path_(broken_line_path(folder).string()) {
        std::ifstream(broken_line_path_) >> broken_line_;
        witness_crashes(*this);
    }
    ~ReplayDriver() override { forget_witness(*this); }

 private:
    void line_begins(long number) override {
        line_ = number;
        if (number == broken_line_)
            throw ScriptFault{"", 0, "it broke the program down when it was done again"};
    }
    void crashed() noexcept override {
        std::array<char, 24> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), line_.load()).ptr;
        const int file = ::open(broken_line_path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (file < 0) return;
        if (::write(file, digits.data(), static_cast<size_t>(end - digits.data())) >= 0) ::fsync(file);
        ::close(file);
    }
    FileBytes kept_bytes(const std::string& name, std::string& fault) override {
        FileBytes bytes = read_file((folder_ / name).string(), fault);
        if (!bytes || kept_name(*bytes) == name) return bytes;
        fault = "it is not what was kept";
        return nullptr;
    }
    const fs::path& folder_;
    const std::string broken_line_path_;
    long broken_line_ = 0;
    std::atomic<long> line_ = 0;
};

size_t size_of_lines(std::string_view text, long count) {
    size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end = std::min(text.find('\n', end), text.size()) + 1;
    return std::min(end, text.size());
}

/// Where the copy is, or why there is none.
std::string put_copy_aside(const SessionFolder& folder) {
    std::error_code error;
    const fs::path path = state_folder() / "damaged" / (folder.path().filename().string() + ".journal");
    fs::create_directories(path.parent_path(), error);
    fs::copy_file(folder.journal_path(), path, fs::copy_options::overwrite_existing, error);
    return error ? error.message() : path.string();
}

/// The journal up to the call that replaced a document; none when no call did.
std::optional<std::string> before_replacement(Journal& journal) {
    std::string fault;
    const bool written = journal.drain();
    const FileBytes text = written ? read_file(journal.folder().journal_path().string(), fault) : nullptr;
    const size_t at = text ? text->rfind("\n" + std::string(replaced_note) + "\n") : std::string::npos;
    return at == std::string::npos ? std::nullopt : std::optional(text->substr(0, at + 1));
}

/// What is kept never changes, so two folders can have it.
void share_kept_files(const fs::path& from, const fs::path& to) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(from, error)) {
        const fs::path name = entry.path().filename();
        if (!name.string().starts_with(kept_prefix)) continue;
        fs::create_hard_link(entry.path(), to / name, error);
        if (error) fs::copy_file(entry.path(), to / name, error);
    }
}

}  // namespace

bool has_previous_document(Journal& journal) { return before_replacement(journal).has_value(); }

std::optional<Recovery> recover_previous_document(Journal& journal) {
    std::string fault;
    const std::optional<std::string> text = before_replacement(journal);
    std::optional<SessionFolder> folder = text ? SessionFolder::make(fault) : std::nullopt;
    if (!folder) return {};
    share_kept_files(journal.folder().path(), folder->path());
    const fs::path path = folder->path();
    const bool written = write_bytes(folder->journal(), *text) == text->size();
    folder.reset();  // to be taken
    return written ? recover(path) : std::nullopt;
}

Replay replay(Session& session, std::string_view journal, const fs::path& folder) {
    if (!journal.starts_with(journal_head)) return {"it is no journal", 0};
    ReplayDriver driver(session, folder);
    std::istringstream lines{std::string(journal)};
    try {
        driver.run(lines, "journal");
    } catch (const ScriptFault& fault) {
        return {fmt::format("line {}: {}", fault.line, fault.what), size_of_lines(journal, fault.line - 1)};
    }
    return {"", journal.size()};
}

std::optional<Recovery> recover(const fs::path& path) {
    std::optional<SessionFolder> folder = SessionFolder::take(path);
    std::string fault;
    FileBytes bytes = folder ? read_file(folder->journal_path().string(), fault) : nullptr;
    if (!bytes) return {};
    const std::string_view journal = whole_lines(*bytes);
    auto session = std::make_unique<Session>();
    Replay replayed = replay(*session, journal, path);
    return Recovery{std::move(session), std::move(*folder),
                    last_note(journal, working_folder_note).value_or(""), std::move(replayed)};
}

std::unique_ptr<Journal> go_on(Session& session, Recovery& recovery) {
    Replay& replayed = recovery.replay;
    if (!replayed.fault.empty())
        replayed.fault +=
            "; what came before is back, and all of the journal is kept: " + put_copy_aside(recovery.folder);
    if (::ftruncate(recovery.folder.journal(), static_cast<off_t>(replayed.done)) != 0) return nullptr;
    std::error_code ignored;
    fs::remove(broken_line_path(recovery.folder.path()), ignored);
    auto journal = std::make_unique<Journal>(session, std::move(recovery.folder), false);
    if (session.box().gesture) session.call(FocusCall{false});  // nobody holds the button any more
    return journal;
}

}  // namespace tq
