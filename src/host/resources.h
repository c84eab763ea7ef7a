// The files that come with the program.
#pragma once

#include <filesystem>

namespace tq {

/// The folder that they are in: `resources` beside the program, or where it is installed, or empty when there
/// is neither.
const std::filesystem::path& resources_folder();

}  // namespace tq
