// Where the program keeps what is no document.
#pragma once

#include <filesystem>
#include <string>

namespace tq {

/// The program's folder among the user's state files (XDG_STATE_HOME); it need not exist.
std::filesystem::path state_folder();
/// The same among the user's settings (XDG_CONFIG_HOME).
std::filesystem::path config_folder();
/// The present moment, as part of a file name: the order of names is that of time.
std::string time_stamp();
/// The folder of copies among them; it need not exist.
std::filesystem::path kept_copies_folder();
/// Where a copy of a file of this name is to be kept, in a folder that is there by now if it can be. Two
/// copies at different times have different names.
std::filesystem::path kept_copy_path(const std::filesystem::path& file);

}  // namespace tq
