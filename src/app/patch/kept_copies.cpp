#include "app/patch/kept_copies.h"

#include <fmt/chrono.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "host/files.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

fs::path state_folder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state && *state) return fs::path(state) / "sorvo";
    const char* home = std::getenv("HOME");
    return fs::path(home && *home ? home : ".") / ".local" / "state" / "sorvo";
}

}  // namespace

std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault) {
    fs::path folder = state_folder() / "kept";
    std::error_code error;
    fs::create_directories(folder, error);
    std::string name = document.empty() ? "untitled" : fs::path(document).stem().string();
    auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    std::string stamp = fmt::format("{:%Y%m%d-%H%M%S}-{:03}", std::chrono::floor<std::chrono::seconds>(now),
                                    now.time_since_epoch().count() % 1000);
    std::string path = (folder / (name + "-" + stamp + ".json")).string();
    return write_file(path, text + "\n", fault) ? std::optional(path) : std::nullopt;
}

}  // namespace tq
