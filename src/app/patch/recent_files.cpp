#include "app/patch/recent_files.h"

#include <filesystem>

#include "app/patch/kept_list.h"

namespace tq {

namespace {

constexpr KeptList list("recent", 10);

}  // namespace

std::vector<std::string> recent_files() { return list.lines(); }

void remember_file(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code error;
    const std::string absolute = fs::absolute(path, error).lexically_normal().string();
    if (!error && fs::is_regular_file(absolute, error)) list.add({absolute});
}

}  // namespace tq
