// One folder a running session, among the user's state files: its journal and the files it has read. It is
// locked for as long as its process lives; a folder that can be locked belongs to a session that ended
// unexpectedly.
#pragma once

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tq {

/// A session's folder, held locked by this process.
class SessionFolder {
 public:
    /// A new one with an empty journal; none, and the reason in `fault`, when that cannot be made.
    static std::optional<SessionFolder> make(std::string& fault);
    /// Takes over one that nobody holds; none when somebody does, or when there is no journal in it.
    static std::optional<SessionFolder> take(const std::filesystem::path& path);
    SessionFolder(SessionFolder&& other) noexcept;
    SessionFolder& operator=(SessionFolder&&) = delete;
    /// Lets go of it; it stays.
    ~SessionFolder();

    const std::filesystem::path& path() const { return path_; }
    /// The open journal; what is written goes to its end.
    int journal() const { return descriptor_; }
    std::filesystem::path journal_path() const { return path_ / "journal"; }
    /// Deletes it.
    void remove();

 private:
    SessionFolder(std::filesystem::path path, int descriptor)
        : path_(std::move(path)), descriptor_(descriptor) {}
    std::filesystem::path path_;
    int descriptor_;
};

/// A session that ended unexpectedly.
struct DeadSession {
    std::filesystem::path folder;
    std::string document;  ///< its file; empty: never saved
    std::time_t when = 0;  ///< something was last done in it
    std::string ended;     ///< the same as text, local time
};

struct DeadSessions {
    std::vector<DeadSession> sessions;  ///< the latest first
    std::vector<std::string> notes;     ///< what the user should know of what was found
};

/// Looks for them. Those in which nothing was edited are deleted, and so are the oldest when there are more
/// than twenty; a folder whose journal is none is put aside.
DeadSessions find_dead_sessions();

/// Begins every journal.
inline constexpr std::string_view journal_head = "# sorvo journal 1\n";
/// Comments in a journal that tell of the document's file and that it was edited.
inline constexpr std::string_view document_note = "# document ", edited_note = "# edited",
                                  working_folder_note = "# in folder ";
/// Stands before the line of a call that emptied or replaced a document.
inline constexpr std::string_view replaced_note = "# replaces a document";
/// The text of the last line of a journal that begins so, without what it begins with.
std::optional<std::string> last_note(std::string_view journal, std::string_view note);

}  // namespace tq
