#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "host/write_bytes.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// An open file that is closed when it goes away.
class File {
 public:
    File(const std::string& path, int flags, mode_t mode = 0)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    explicit operator bool() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    /// False when the system reports an error only now.
    bool close() {
        int closing = std::exchange(descriptor_, -1);
        return closing < 0 || ::close(closing) == 0;
    }

 private:
    int descriptor_;
};

bool write_all(const File& file, std::string_view bytes) {
    return write_bytes(file.descriptor(), bytes) == bytes.size();
}

bool write_and_sync(const File& file, std::string_view bytes) {
    return write_all(file, bytes) && ::fsync(file.descriptor()) == 0;
}

/// The bytes on disk under a name of their own; false with errno set. Where the system can, the file gets its
/// name when it is whole: a program that is killed leaves nothing behind.
bool write_beside(const std::string& beside, std::string_view bytes, mode_t mode) {
    const fs::path folder = fs::path(beside).parent_path();
    File nameless(folder.empty() ? "." : folder.string(), O_WRONLY | O_TMPFILE, mode);
    if (nameless) {
        if (!write_and_sync(nameless, bytes)) return false;
        const std::string open_file = "/proc/self/fd/" + std::to_string(nameless.descriptor());
        ::unlink(beside.c_str());
        if (::linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, beside.c_str(), AT_SYMLINK_FOLLOW) == 0)
            return nameless.close();
    }
    File file(beside, O_WRONLY | O_CREAT | O_TRUNC, mode);
    return file && write_and_sync(file, bytes) && file.close();
}

/// Whether the path leads to something that is no file to be replaced: a device, a pipe, a terminal.
bool is_device(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

void sync_folder_of(const fs::path& path) {
    fs::path folder = path.parent_path();
    if (File file(folder.empty() ? "." : folder.string(), O_RDONLY | O_DIRECTORY); file)
        ::fsync(file.descriptor());
}

}  // namespace

FileBytes read_file(const std::string& path, std::string& fault) {
    File file(path, O_RDONLY);
    struct stat status {};
    if (!file || ::fstat(file.descriptor(), &status) != 0) {
        fault = std::strerror(errno);
        return {};
    }
    if (S_ISDIR(status.st_mode)) {
        fault = std::strerror(EISDIR);
        return {};
    }
    std::string bytes(static_cast<size_t>(status.st_size) + 1, '\0');  // one more, to see the end
    size_t filled = 0;
    while (true) {
        if (filled == bytes.size()) bytes.resize(bytes.size() + 65536);  // a pipe, or a file that grows
        ssize_t got = ::read(file.descriptor(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            fault = std::strerror(errno);
            return {};
        }
        if (got == 0) break;
        filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return std::make_shared<const std::string>(std::move(bytes));
}

bool write_file(const std::string& path, std::string_view bytes, std::string& fault) {
    if (is_device(path)) {
        File device(path, O_WRONLY);
        if (device && write_all(device, bytes) && device.close()) return true;
        fault = std::strerror(errno);
        return false;
    }
    std::error_code ignored;
    fs::path target = fs::is_symlink(path, ignored) ? fs::canonical(path, ignored) : fs::path(path);
    if (target.empty()) target = path;
    struct stat status {};
    mode_t mode = ::stat(target.c_str(), &status) == 0 ? status.st_mode & 07777 : 0666;
    std::string beside = target.string() + "." + std::to_string(::getpid()) + ".new";
    if (!S_ISDIR(status.st_mode) && write_beside(beside, bytes, mode) &&
        ::rename(beside.c_str(), target.c_str()) == 0) {
        sync_folder_of(target);
        return true;
    }
    fault = std::strerror(S_ISDIR(status.st_mode) ? EISDIR : errno);
    ::unlink(beside.c_str());
    return false;
}

std::string path_in_folder(const std::string& folder, const std::string& name) {
    return folder.empty() ? name : (fs::path(folder) / name).string();
}

LocatedFile located(const std::string& path) {
    return {fs::path(path).filename().string(), fs::path(path).parent_path().string()};
}

std::optional<LocatedFile> locatefile_extended(const std::string& name, const std::string& folder) {
    std::error_code ignored;
    for (const std::string& candidate : {name, path_in_folder(folder, name)}) {
        if (candidate.empty() || !fs::exists(candidate, ignored)) continue;
        return located(candidate);
    }
    return {};
}

}  // namespace tq
