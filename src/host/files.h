// Files: finding them, reading them whole, and writing them so that the old one or the new one is always
// whole.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tq {

/// A file's bytes, which more than one may need for a while; null: none.
using FileBytes = std::shared_ptr<const std::string>;
/// The most bytes that are read of a file: what never ends is refused before memory does.
inline constexpr size_t largest_file = size_t{1} << 30;
/// A file's bytes; none, and the reason in `fault`, when it cannot be read. Pipes are read to their end,
/// once.
FileBytes read_file(const std::string& path, std::string& fault);
/// Writes the file as a FileWriter does. False, and the reason in `fault`, when it cannot be written; what
/// was there stays then.
bool write_file(const std::string& path, std::string_view bytes, std::string& fault);

/// A file found by name: its name and the folder that it is in (empty: the working folder).
struct LocatedFile {
    std::string name, folder;
};
/// Looks the name up as a path, then in `folder`; none when there is no such file.
std::optional<LocatedFile> locatefile_extended(const std::string& name, const std::string& folder);
/// A path taken apart.
LocatedFile located(const std::string& path);
/// The path of a file in a folder; an absolute name stays as it is.
std::string path_in_folder(const std::string& folder, const std::string& name);

}  // namespace tq
