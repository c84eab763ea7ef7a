#include "app/patch/state_folder.h"

#include <fmt/chrono.h>

#include <chrono>
#include <cstdlib>

namespace tq {

namespace fs = std::filesystem;

fs::path state_folder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state) return fs::path(state) / "sorvo";
    const char* home = std::getenv("HOME");
    return fs::path(home && *home ? home : ".") / ".local" / "state" / "sorvo";
}

std::string time_stamp() {
    auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    return fmt::format("{:%Y%m%d-%H%M%S}-{:03}", std::chrono::floor<std::chrono::seconds>(now),
                       now.time_since_epoch().count() % 1000);
}

}  // namespace tq
