// Writing to an open file.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string_view>

namespace tq {

/// Writes all bytes, in as many pieces as it takes. How many were written; errno says why not all were.
inline size_t write_bytes(int descriptor, std::string_view bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) break;
        done += static_cast<size_t>(written);
    }
    return done;
}

}  // namespace tq
