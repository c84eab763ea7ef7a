// Lists of lines among the user's state files, shared by all that run.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tq {

class KeptList {
 public:
    /// A file of this name in the program's state folder, of at most so many lines.
    constexpr KeptList(const char* name, size_t most) : name_(name), most_(most) {}
    /// The latest first; nothing where there is no file.
    std::vector<std::string> lines() const;
    /// Puts lines first in the file, in their order the last of them foremost, and drops what is too much.
    /// Each stands there once. One that is empty or has a line end in it is left out; what cannot be kept is
    /// not.
    void add(const std::vector<std::string>& lines) const;
    /// Does the same to the lines of such a file.
    void put_first(std::vector<std::string>& kept, const std::vector<std::string>& lines) const;

 private:
    const char* name_;
    size_t most_;
};

}  // namespace tq
