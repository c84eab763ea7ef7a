// Bringing back a session that ended unexpectedly.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/journal/session_folder.h"
#include "app/patch/session.h"

namespace tq {

struct Recovery {
    std::unique_ptr<Session> session;
    SessionFolder folder;        ///< its journal, which can go on
    std::string working_folder;  ///< where the session's file names begin; empty: not known
    std::string fault;           ///< why not all of it came back; empty: all did
};

/// Does again what the journal of a session tells. A last line that is not whole is dropped. Where the
/// journal cannot be followed any further it is cut off, and a copy of the whole is put aside. None when
/// somebody holds the folder or nothing can be read in it.
std::optional<Recovery> recover(const std::filesystem::path& folder);

/// Runs the lines of a journal on a session that nothing was done to. Files that were kept lie in `folder`.
/// Returns what is wrong with the first line that cannot be followed, and the size of the text before it.
struct Replay {
    std::string fault;  ///< empty: none
    size_t done = 0;    ///< bytes
};
Replay replay(Session& session, std::string_view journal, const std::filesystem::path& folder);

}  // namespace tq
