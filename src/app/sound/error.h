// Why sound cannot be made.
#pragma once

#include <stdexcept>

namespace tq {

/// One sentence; names the file if there is one.
class SoundError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

}  // namespace tq
