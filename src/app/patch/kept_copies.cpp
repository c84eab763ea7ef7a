#include "app/patch/kept_copies.h"

#include <algorithm>
#include <chrono>

#include "host/files.h"
#include "host/state_folder.h"

namespace tq {

namespace fs = std::filesystem;

namespace {

constexpr const char *untitled = "untitled", *ending = ".json";
constexpr size_t always_kept = 100;
constexpr std::chrono::days always_kept_for{30};

fs::file_time_type changed(const fs::path& path) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(path, error);
    return error ? fs::file_time_type::min() : time;
}

void forget_old_copies() {
    const std::vector<fs::path> copies = kept_copies();
    const auto oldest = fs::file_time_type::clock::now() - always_kept_for;
    std::error_code ignored;
    for (size_t i = always_kept; i < copies.size(); ++i)
        if (changed(copies[i]) < oldest) fs::remove(copies[i], ignored);
}

}  // namespace

std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault) {
    const fs::path name = document.empty() ? fs::path(untitled) : fs::path(document).stem();
    const std::string path = kept_copy_path(name.string() + ending).string();
    if (!write_file(path, text + "\n", fault)) return {};
    forget_old_copies();
    return path;
}

std::vector<fs::path> kept_copies() {
    std::vector<fs::path> copies;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(kept_copies_folder(), error))
        if (entry.is_regular_file(error) && entry.path().extension() == ending)
            copies.push_back(entry.path());
    std::ranges::sort(copies, std::greater<>(),
                      [](const fs::path& path) { return std::pair(changed(path), path); });
    return copies;
}

std::string document_of_copy(const fs::path& copy) {
    const size_t time_size = std::string("-").size() + time_stamp().size();
    const std::string stem = copy.stem().string();
    const std::string name = stem.substr(0, stem.size() - std::min(stem.size(), time_size));
    return name == untitled ? "" : name + ending;
}

}  // namespace tq
