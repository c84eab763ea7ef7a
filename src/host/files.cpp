#include "host/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "host/file_writer.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

const char* const too_large = "it is larger than 1 GiB";

/// An open file that is closed when it goes away.
class File {
 public:
    explicit File(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~File() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int descriptor() const { return descriptor_; }

 private:
    int descriptor_;
};

}  // namespace

FileBytes read_file(const std::string& path, std::string& fault) {
    File file(path);
    struct stat status {};
    if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0) {
        fault = std::strerror(errno);
        return {};
    }
    if (S_ISDIR(status.st_mode)) {
        fault = std::strerror(EISDIR);
        return {};
    }
    const auto refuse = [&](const std::string& reason) {
        fault = reason;
        return FileBytes();
    };
    if (static_cast<size_t>(status.st_size) > largest_file) return refuse(too_large);
    std::string bytes(static_cast<size_t>(status.st_size) + 1, '\0');  // one more, to see the end
    size_t filled = 0;
    while (true) {
        if (filled > largest_file) return refuse(too_large);
        // A pipe, or a file that grows.
        if (filled == bytes.size()) bytes.resize(std::min(2 * bytes.size() + 65536, largest_file + 1));
        ssize_t got = ::read(file.descriptor(), bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return refuse(std::strerror(errno));
        if (got == 0) break;
        filled += static_cast<size_t>(got);
    }
    bytes.resize(filled);
    return std::make_shared<const std::string>(std::move(bytes));
}

bool write_file(const std::string& path, std::string_view bytes, std::string& fault) {
    FileWriter file(path);
    if (file.write(bytes) && file.commit()) return true;
    fault = file.fault();
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
