#include "app/patch/kept_copies.h"

#include <filesystem>

#include "host/files.h"
#include "host/state_folder.h"

namespace tq {

namespace fs = std::filesystem;

std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault) {
    const fs::path name = document.empty() ? fs::path("untitled") : fs::path(document).stem();
    const std::string path = kept_copy_path(name.string() + ".json").string();
    return write_file(path, text + "\n", fault) ? std::optional(path) : std::nullopt;
}

}  // namespace tq
