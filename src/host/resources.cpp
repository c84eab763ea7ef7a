#include "host/resources.h"

#include <cstdlib>

namespace tq {

namespace fs = std::filesystem;

namespace {

fs::path beside_program() {
    std::error_code fault;
    const fs::path program = fs::read_symlink("/proc/self/exe", fault);
    for (const char* place : {"resources", SORVO_INSTALLED_RESOURCES}) {
        fs::path folder = (program.parent_path() / place).lexically_normal();
        if (fs::is_directory(folder, fault)) return folder;
    }
    return {};
}

}  // namespace

fs::path resources_folder() {
    const char* named = std::getenv("SORVO_RESOURCES");
    if (!named || !*named) return beside_program();
    std::error_code fault;
    return fs::is_directory(named, fault) ? fs::path(named) : fs::path();
}

}  // namespace tq
