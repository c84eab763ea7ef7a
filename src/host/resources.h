// The files that come with the program.
#pragma once

#include <filesystem>

namespace tq {

/// The folder that they are in: the one that the environment names (SORVO_RESOURCES), `resources` beside the
/// program, or where it is installed; empty when it is not there.
std::filesystem::path resources_folder();

}  // namespace tq
