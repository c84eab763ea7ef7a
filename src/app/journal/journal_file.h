// A journal on disk: who appends to it never waits for the disk.
#pragma once

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <initializer_list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/files.h"

namespace tq {

/// Text that is appended reaches the file within about 100 ms, and the disk within about a second more. While
/// that fails it is tried again, as long as not too much is waiting.
class JournalFile {
 public:
    /// Writes to the end of an open file. Kept files go into `folder`. The descriptor must outlive this.
    JournalFile(std::filesystem::path folder, int descriptor);
    /// Writes what is left.
    ~JournalFile();
    JournalFile(const JournalFile&) = delete;
    JournalFile& operator=(const JournalFile&) = delete;

    void append(std::string_view text);
    /// Keeps the bytes of a file beside the journal, equal ones once, and appends the line that a replay gets
    /// them by.
    void keep(FileBytes bytes);
    /// Waits until all that was appended is in the file; false when it cannot be written.
    bool drain();
    /// In a process that breaks down: writes what it can of what is waiting, and then `last`, waiting half
    /// a second at most for whoever is writing. Nothing is written after that.
    void write_in_a_crash(std::initializer_list<std::string_view> last) noexcept;
    /// Why the journal could not be written, once; mostly empty.
    std::string take_fault();

 private:
    bool lock_in_a_crash() noexcept;
    /// Text, and after it the bytes of a file to keep, if any.
    struct Piece {
        std::string text;
        FileBytes file;
    };
    void write_loop(const std::stop_token& stop);
    void sync_loop(const std::stop_token& stop);
    bool write_pieces(std::vector<Piece>& pieces);
    bool write_text(std::string& text);
    bool write_kept(Piece& piece);
    void take_back(std::vector<Piece> pieces);
    void fail(const std::string& reason);

    const std::filesystem::path folder_;
    const int descriptor_;

    std::mutex mutex_;
    std::condition_variable_any appended_, written_;
    std::vector<Piece> pieces_;                    ///< what is still to be written
    std::vector<std::filesystem::path> unsynced_;  ///< kept files
    size_t waiting_ = 0;                           ///< bytes of text in `pieces_`
    bool writing_ = false, to_sync_ = false, gave_up_ = false, draining_ = false;
    bool failed_ = false;
    std::string fault_;
    std::atomic<bool> fault_to_tell_ = false;

    std::jthread writer_, syncer_;  ///< last: they end before what they use
};

/// The name under which bytes are kept: it tells their size and checksum, and begins with the prefix.
inline constexpr std::string_view kept_prefix = "kept-";
std::string kept_name(std::string_view bytes);

}  // namespace tq
