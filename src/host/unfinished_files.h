// Files that bear a name before they are whole go when a signal ends the program.
#pragma once

#include <filesystem>

namespace tq {

/// From now on the file is deleted when SIGINT, SIGTERM or SIGHUP ends the program; unless somebody handles
/// these signals otherwise, or too many files are unfinished.
void begin_unfinished(const std::filesystem::path& path);
/// It stays, or is gone.
void end_unfinished(const std::filesystem::path& path);

}  // namespace tq
