// Files that somebody broke: their bytes, and for how long to try.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <string>

namespace tq::test {

/// When trying ends: SORVO_FUZZ_SECONDS from now, 5 when it is not set.
inline std::chrono::steady_clock::time_point end_of_fuzzing() {
    const char* seconds = std::getenv("SORVO_FUZZ_SECONDS");
    return std::chrono::steady_clock::now() +
           std::chrono::duration_cast<std::chrono::steady_clock::duration>(
               std::chrono::duration<double>(seconds ? std::atof(seconds) : 5));
}

/// Breaks a file in one to six places; `telling` are bytes that mean something in its format.
inline std::string broken(std::string file, std::string_view telling, std::mt19937& random) {
    auto below = [&](size_t count) { return random() % count; };
    for (size_t changes = 1 + below(6); changes > 0 && !file.empty(); --changes) {
        const size_t at = below(file.size());
        const size_t way = below(16);
        if (way < 3)
            file[at] = static_cast<char>(file[at] ^ 1 << below(8));
        else if (way < 6)
            file.erase(at, 1 + below(16));
        else if (way < 9)
            file.insert(below(file.size()), file.substr(at, 1 + below(400)));
        else if (way < 15)
            file[at] = telling[below(telling.size())];
        else
            file.resize(at);
    }
    return file;
}

}  // namespace tq::test
