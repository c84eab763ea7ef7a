#include "app/patch/kept_copies.h"

#include <filesystem>

#include "app/patch/state_folder.h"
#include "host/files.h"

namespace tq {

namespace fs = std::filesystem;

std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault) {
    fs::path folder = state_folder() / "kept";
    std::error_code error;
    fs::create_directories(folder, error);
    std::string name = document.empty() ? "untitled" : fs::path(document).stem().string();
    std::string path = (folder / (name + "-" + time_stamp() + ".json")).string();
    return write_file(path, text + "\n", fault) ? std::optional(path) : std::nullopt;
}

}  // namespace tq
