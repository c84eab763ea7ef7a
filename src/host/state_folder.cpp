#include "host/state_folder.h"

#include <fmt/chrono.h>

#include <chrono>
#include <cstdlib>

namespace tq {

namespace fs = std::filesystem;

namespace {

/// Where the user says, or where it is usual.
fs::path user_folder(const char* variable, const fs::path& usual) {
    if (const char* folder = std::getenv(variable); folder && *folder) return fs::path(folder) / "sorvo";
    const char* home = std::getenv("HOME");
    return fs::path(home && *home ? home : ".") / usual / "sorvo";
}

}  // namespace

fs::path state_folder() { return user_folder("XDG_STATE_HOME", fs::path(".local") / "state"); }

fs::path config_folder() { return user_folder("XDG_CONFIG_HOME", ".config"); }

std::string time_stamp() {
    auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    return fmt::format("{:%Y%m%d-%H%M%S}-{:03}", std::chrono::floor<std::chrono::seconds>(now),
                       now.time_since_epoch().count() % 1000);
}

fs::path kept_copies_folder() { return state_folder() / "kept"; }

fs::path kept_copy_path(const fs::path& file) {
    constexpr size_t longest_stem = 200;  // bytes, so that the time has room in a name
    const fs::path folder = kept_copies_folder();
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    return folder /
           (file.stem().string().substr(0, longest_stem) + "-" + time_stamp() + file.extension().string());
}

}  // namespace tq
