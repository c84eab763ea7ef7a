// The documents that were opened or saved last, over all windows.
#pragma once

#include <string>
#include <vector>

namespace tq {

/// Paths, the latest first; at most ten. Files that are gone stay in the list.
std::vector<std::string> recent_files();
/// Puts an existing file first. What cannot be remembered is not.
void remember_file(const std::string& path);

}  // namespace tq
