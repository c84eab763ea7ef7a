#include "app/patch/kept_list.h"

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

/// Keeps other processes from changing a list between our reading and our writing.
class ListLock {
 public:
    explicit ListLock(const fs::path& list)
        : descriptor_(::open((list.string() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
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

std::vector<std::string> KeptList::lines() const {
    std::string fault;
    FileBytes text = read_file((state_folder() / name_).string(), fault);
    std::vector<std::string> lines;
    std::istringstream stream(text ? *text : std::string());
    for (std::string line; lines.size() < most_ && std::getline(stream, line);)
        if (!line.empty()) lines.push_back(line);
    return lines;
}

void KeptList::put_first(std::vector<std::string>& kept, const std::vector<std::string>& added) const {
    for (const std::string& line : added) {
        if (line.empty() || line.find('\n') != line.npos) continue;
        std::erase(kept, line);
        kept.insert(kept.begin(), line);
    }
    kept.resize(std::min(kept.size(), most_));
}

void KeptList::add(const std::vector<std::string>& added) const {
    std::error_code ignored;
    fs::create_directories(state_folder(), ignored);
    const ListLock lock(state_folder() / name_);
    std::vector<std::string> kept = lines();
    put_first(kept, added);
    std::string text, fault;
    for (const std::string& line : kept) text += line + "\n";
    write_file((state_folder() / name_).string(), text, fault);
}

}  // namespace tq
