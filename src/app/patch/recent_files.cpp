#include "app/patch/recent_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "host/files.h"
#include "host/state_folder.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

constexpr size_t most_remembered = 10;

fs::path list_path() { return state_folder() / "recent"; }

/// Keeps other processes from changing the list between our reading and our writing.
class ListLock {
 public:
    ListLock()
        : descriptor_(::open((state_folder() / "recent.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (descriptor_ >= 0) ::flock(descriptor_, LOCK_EX);
    }
    ~ListLock() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    ListLock(const ListLock&) = delete;
    ListLock& operator=(const ListLock&) = delete;

 private:
    int descriptor_;
};

}  // namespace

std::vector<std::string> recent_files() {
    std::string fault;
    FileBytes text = read_file(list_path().string(), fault);
    std::vector<std::string> paths;
    std::istringstream lines(text ? *text : std::string());
    for (std::string line; paths.size() < most_remembered && std::getline(lines, line);)
        if (!line.empty()) paths.push_back(line);
    return paths;
}

void remember_file(const std::string& path) {
    std::error_code error;
    const std::string absolute = fs::absolute(path, error).lexically_normal().string();
    if (error || absolute.find('\n') != absolute.npos || !fs::is_regular_file(absolute, error)) return;
    fs::create_directories(state_folder(), error);
    ListLock lock;
    std::vector<std::string> paths = recent_files();
    std::erase(paths, absolute);
    paths.insert(paths.begin(), absolute);
    paths.resize(std::min(paths.size(), most_remembered));
    std::string text, fault;
    for (const std::string& each : paths) text += each + "\n";
    write_file(list_path().string(), text, fault);
}

}  // namespace tq
