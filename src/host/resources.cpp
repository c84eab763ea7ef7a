#include "host/resources.h"

namespace tq {

namespace fs = std::filesystem;

namespace {

fs::path find_folder() {
    std::error_code fault;
    const fs::path program = fs::read_symlink("/proc/self/exe", fault);
    if (fault) return {};
    for (const char* place : {"resources", "../share/sorvo/resources"}) {
        fs::path folder = (program.parent_path() / place).lexically_normal();
        if (fs::is_directory(folder, fault)) return folder;
    }
    return {};
}

}  // namespace

const fs::path& resources_folder() {
    static const fs::path folder = find_folder();
    return folder;
}

}  // namespace tq
