#include "host/file_writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "host/state_folder.h"
#include "host/unfinished_files.h"
#include "host/write_bytes.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// Where a path leads in the end, whether anything is there or not.
fs::path followed(fs::path path) {
    constexpr int most_links = 40;
    std::error_code error;
    for (int i = 0; i < most_links && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);  // an absolute one stands alone
    return path;
}

fs::path folder_of(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : "."; }

/// Beside the target, whose own name may be as long as a name can be.
fs::path name_beside(const fs::path& target) {
    static std::atomic<int> count = 0;
    return folder_of(target) /
           (".sorvo-" + std::to_string(::getpid()) + "-" + std::to_string(++count) + ".new");
}

/// What says that a folder, or the place in it, takes no new file, rather than that no file can be written.
bool admits_no_new_file(int error) {
    constexpr std::array reasons{EACCES, EPERM, EROFS, EBUSY, EXDEV};
    return std::ranges::find(reasons, error) != reasons.end();
}

/// Who may write everything is still told what the owner of the file meant.
std::string why_not_writable(const fs::path& path, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return std::strerror(EISDIR);
    const bool may = ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    if (!may && errno != EACCES) return std::strerror(errno);
    return may && (status.st_mode & 0222) != 0 ? "" : "it is read-only";
}

void sync_folder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

FileWriter::FileWriter(const std::string& path) : target_(followed(path)) {
    struct stat status {};
    exists_ = ::stat(target_.c_str(), &status) == 0;
    if (exists_) {
        mode_ = status.st_mode & 07777;
        owner_ = status.st_uid;
        group_ = status.st_gid;
        special_ = !S_ISREG(status.st_mode);
        fault_ = why_not_writable(target_, status);
        if (!fault_.empty()) return;
    }
    if (!special_) stage_beside();
    if (staged_ < 0 && exists_) stage_elsewhere();
    if (staged_ < 0) fail();
}

FileWriter::~FileWriter() {
    if (staged_ >= 0) ::close(staged_);
    drop_name();
}

void FileWriter::drop_name() {
    if (!std::exchange(named_, false)) return;
    ::unlink(beside_.c_str());
    end_unfinished(beside_);
}

/// Where the system can, the file gets its name when it is whole: a program that is killed leaves nothing
/// behind.
void FileWriter::stage_beside() {
    beside_ = name_beside(target_);
    staged_ = ::open(folder_of(target_).c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, mode_);
    if (staged_ < 0) staged_ = open_named();
    if (staged_ < 0 || looks_as_before(staged_)) return;
    const int reason = errno;  // the file would be another's
    drop_name();
    ::close(std::exchange(staged_, -1));
    errno = reason;
}

int FileWriter::open_named() {
    begin_unfinished(beside_);
    const int file = ::open(beside_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode_);
    named_ = file >= 0;
    if (!named_) end_unfinished(beside_);
    return file;
}

bool FileWriter::looks_as_before(int file) const {
    return !exists_ || (::fchown(file, owner_, group_) == 0 && ::fchmod(file, mode_) == 0);
}

/// In a file without a name that is copied over the target, or into it.
void FileWriter::stage_elsewhere() {
    if (!special_ && !admits_no_new_file(errno)) return;
    beside_.clear();
    std::error_code ignored;
    std::string name = (fs::temp_directory_path(ignored) / "sorvo-XXXXXX").string();
    staged_ = ::mkostemp(name.data(), O_CLOEXEC);
    if (staged_ >= 0) ::unlink(name.c_str());
}

bool FileWriter::write(std::string_view bytes) {
    return fault_.empty() && (write_bytes(staged_, bytes) == bytes.size() || fail());
}

bool FileWriter::commit(Sync sync) {
    if (!fault_.empty()) return false;
    if (special_) return copy_into(::open(target_.c_str(), O_WRONLY | O_CLOEXEC)) || fail();
    if (sync == Sync::Now && ::fsync(staged_) != 0) return fail();
    if (beside_.empty()) return overwrite();
    if (!take_place()) return exists_ && admits_no_new_file(errno) ? overwrite() : fail();
    if (sync == Sync::Now) sync_folder(folder_of(target_));
    return true;
}

bool FileWriter::take_place() {
    if (!has_name() || ::rename(beside_.c_str(), target_.c_str()) != 0) return false;
    named_ = false;
    end_unfinished(beside_);
    return true;
}

bool FileWriter::has_name() {
    if (named_) return true;
    const std::string open_file = "/proc/self/fd/" + std::to_string(staged_);
    begin_unfinished(beside_);
    named_ = ::linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, beside_.c_str(), AT_SYMLINK_FOLLOW) == 0;
    if (named_) return true;
    const int file = open_named();
    return file >= 0 && looks_as_before(file) && copy_into(file);
}

/// A copy of what is there is kept until the new bytes are on disk.
bool FileWriter::overwrite() {
    const fs::path kept = kept_copy_path(target_);
    std::error_code error;
    if (!fs::copy_file(target_, kept, error))
        return fail("it can only be overwritten, and no copy of it can be kept: " + error.message());
    if (!copy_into(::open(target_.c_str(), O_WRONLY | O_CLOEXEC)))
        return fail(std::string(std::strerror(errno)) + "; what it held is in " + kept.string());
    fs::remove(kept, error);
    return true;
}

/// Copies what was written into an open file, and closes it. False with errno set.
bool FileWriter::copy_into(int target) {
    if (target < 0 || ::lseek(staged_, 0, SEEK_SET) != 0) return false;
    std::array<char, 1 << 16> piece;
    ssize_t got = 0;
    off_t size = 0;
    while ((got = ::read(staged_, piece.data(), piece.size())) > 0) {
        if (write_bytes(target, {piece.data(), static_cast<size_t>(got)}) != static_cast<size_t>(got))
            got = -1;
        if (got < 0) break;
        size += got;
    }
    const bool copied = got == 0 && (special_ || (::ftruncate(target, size) == 0 && ::fsync(target) == 0));
    const int reason = errno;
    const bool closed = ::close(target) == 0;
    if (!copied) errno = reason;
    return copied && closed;
}

bool FileWriter::fail(const std::string& reason) {
    if (fault_.empty()) fault_ = reason;
    return false;
}

bool FileWriter::fail() { return fail(std::strerror(errno)); }

}  // namespace tq
