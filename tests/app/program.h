// The program, run as people run it.
#pragma once

#include <sys/wait.h>

#include <cstdlib>

#include "app/script_fixture.h"

namespace tq::test {

struct ProgramRun {
    int status = -1;  ///< the exit status; −1 when it did not exit by itself
    std::string out, err;
};

/// Runs `sorvo ARGUMENTS` (shell words) in a folder; another program than the one that was built, if one is
/// named.
inline ProgramRun run_program(const TemporaryFolder& folder, const std::string& arguments,
                              const std::string& input = "", const std::string& program = SORVO_PROGRAM) {
    folder.file_with("stdin", input);
    // As a desktop session sets it; 0700, or the toolkit complains.
    std::filesystem::permissions(folder.path, std::filesystem::perms::owner_all);
    std::string command = "export XDG_RUNTIME_DIR='" + folder.path.string() + "'; cd '" +
                          folder.path.string() + "' && '" + program + "' " + arguments +
                          " <stdin >stdout 2>stderr";
    int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text_of_file(folder.file("stdout")),
            text_of_file(folder.file("stderr"))};
}

}  // namespace tq::test
