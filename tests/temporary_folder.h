// A folder of a test's own: tests run side by side.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace tq::test {

inline std::string text_of_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder that goes away with the test.
struct TemporaryFolder {
    std::filesystem::path path;
    TemporaryFolder() {
        static int count = 0;
        path = std::filesystem::temp_directory_path() /
               ("sorvo_tests." + std::to_string(::getpid()) + "." + std::to_string(++count));
        std::filesystem::create_directories(path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::string file(const std::string& name) const { return (path / name).string(); }
    std::string file_with(const std::string& name, std::string_view text) const {
        std::ofstream(file(name), std::ios::binary) << text;
        return file(name);
    }
};

}  // namespace tq::test
