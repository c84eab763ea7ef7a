#include "app/journal/session_folder.h"

#include <fcntl.h>
#include <fmt/chrono.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <tuple>
#include <utility>

#include "host/files.h"
#include "host/state_folder.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

constexpr size_t most_dead = 20;
/// Folders that are being made have names of this kind until they are locked.
constexpr std::string_view unfinished = ".new-";

fs::path sessions_folder() { return state_folder() / "sessions"; }

int open_locked(const fs::path& journal, int flags) {
    const int descriptor = ::open(journal.c_str(), O_RDWR | O_APPEND | O_CLOEXEC | flags, 0600);
    if (descriptor < 0 || ::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return descriptor;
    ::close(descriptor);
    return -1;
}

/// Whether the open file is still the one at this path.
bool is_at(int descriptor, const fs::path& path) {
    struct stat open {
    }, there{};
    return ::fstat(descriptor, &open) == 0 && ::stat(path.c_str(), &there) == 0 &&
           open.st_ino == there.st_ino && open.st_dev == there.st_dev;
}

std::time_t changed(int descriptor) {
    struct stat status {};
    ::fstat(descriptor, &status);
    return status.st_mtime;
}

std::string local_time(std::time_t time) { return fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::localtime(time)); }

/// Out of the way, but kept.
std::string put_aside(const SessionFolder& session) {
    const fs::path aside = state_folder() / "damaged" / session.path().filename();
    std::error_code error;
    fs::create_directories(aside.parent_path(), error);
    fs::rename(session.path(), aside, error);
    return error ? session.path().string() : aside.string();
}

enum class Verdict { Dead, Worthless, Damaged };

Verdict judge(std::string_view journal) {
    if (journal_head.starts_with(journal)) return Verdict::Worthless;  // ended before it began
    if (!journal.starts_with(journal_head)) return Verdict::Damaged;
    return last_note(journal, edited_note) ? Verdict::Dead : Verdict::Worthless;
}

void look_at(SessionFolder session, DeadSessions& found) {
    std::string fault;
    FileBytes journal = read_file(session.journal_path().string(), fault);
    if (!journal) return;
    switch (judge(*journal)) {
        case Verdict::Worthless:
            session.remove();
            break;
        case Verdict::Damaged:
            found.notes.push_back(
                "the journal of a session that ended unexpectedly cannot be read; it is in " +
                put_aside(session));
            break;
        case Verdict::Dead:
            const std::time_t when = changed(session.journal());
            found.sessions.push_back(
                {session.path(), last_note(*journal, document_note).value_or(""), when, local_time(when)});
    }
}

/// What a process left that ended while it made its folder.
void remove_unfinished(const fs::path& path) {
    constexpr std::time_t long_ago = 60;  // s
    std::optional<SessionFolder> session = SessionFolder::take(path);
    if (session && changed(session->journal()) < std::time(nullptr) - long_ago) session->remove();
}

}  // namespace

std::optional<SessionFolder> SessionFolder::make(std::string& fault) {
    static int count = 0;
    std::error_code error;
    const fs::path folder = sessions_folder();
    fs::create_directories(folder, error);
    const std::string name = fmt::format("{}-{}-{}", time_stamp(), ::getpid(), ++count);
    const fs::path made = folder / (std::string(unfinished) + name), path = folder / name;
    if (::mkdir(made.c_str(), 0700) == 0) {
        const int descriptor = open_locked(made / "journal", O_CREAT | O_EXCL);
        if (descriptor >= 0) {
            SessionFolder session(path, descriptor);
            if (::rename(made.c_str(), path.c_str()) == 0) return session;
        }
    }
    fault = made.string() + ": " + std::strerror(errno);
    fs::remove_all(made, error);
    return {};
}

std::optional<SessionFolder> SessionFolder::take(const fs::path& path) {
    const int descriptor = open_locked(path / "journal", 0);
    if (descriptor < 0) return {};
    SessionFolder session(path, descriptor);
    if (!is_at(descriptor, session.journal_path())) return {};  // deleted just now
    return session;
}

SessionFolder::SessionFolder(SessionFolder&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, -1)) {}

SessionFolder::~SessionFolder() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

void SessionFolder::remove() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

DeadSessions find_dead_sessions() {
    DeadSessions found;
    std::error_code error;
    std::vector<fs::path> folders;
    for (const fs::directory_entry& entry : fs::directory_iterator(sessions_folder(), error))
        folders.push_back(entry.path());
    for (const fs::path& folder : folders) {
        if (folder.filename().string().starts_with(unfinished))
            remove_unfinished(folder);
        else if (std::optional<SessionFolder> session = SessionFolder::take(folder))
            look_at(std::move(*session), found);
    }
    auto& sessions = found.sessions;
    std::sort(sessions.begin(), sessions.end(), [](const DeadSession& a, const DeadSession& b) {
        return std::tie(a.ended, a.folder) > std::tie(b.ended, b.folder);
    });
    for (; sessions.size() > most_dead; sessions.pop_back())
        if (std::optional<SessionFolder> oldest = SessionFolder::take(sessions.back().folder)) {
            oldest->remove();
            found.notes.push_back("the session of " + sessions.back().ended +
                                  ", which ended unexpectedly, is deleted: more than " +
                                  std::to_string(most_dead) + " were waiting");
        }
    return found;
}

std::optional<std::string> last_note(std::string_view journal, std::string_view note) {
    std::string line("\n");
    line += note;
    const size_t at = journal.rfind(line);
    if (at == journal.npos) return {};
    const size_t begin = at + 1 + note.size(), end = journal.find('\n', begin);
    if (end == journal.npos) return last_note(journal.substr(0, at), note);  // torn
    return std::string(journal.substr(begin, end - begin));
}

}  // namespace tq
