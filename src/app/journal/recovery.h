// Bringing back a session that ended unexpectedly.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/journal/journal.h"
#include "app/journal/session_folder.h"
#include "app/patch/session.h"

namespace tq {

struct Replay {
    std::string fault;  ///< what is wrong with the first line that cannot be followed; empty: nothing
    size_t done = 0;    ///< bytes of journal before that line
};
/// Runs the lines of a journal on a session that nothing was done to. Files that were kept lie in `folder`.
Replay replay(Session& session, std::string_view journal, const std::filesystem::path& folder);

struct Recovery {
    std::unique_ptr<Session> session;
    SessionFolder folder;
    std::string working_folder;  ///< where the session's file names begin; empty: not known
    Replay replay;
};
/// Does again what the journal of a session tells, without a last line that is not whole. The folder stays as
/// it is, and held. None when somebody holds it or nothing can be read in it.
std::optional<Recovery> recover(const std::filesystem::path& folder);

/// Whether the session whose journal this is had another document before.
bool has_previous_document(Journal& journal);
/// The session as it was before its document was last emptied or replaced, in a folder of its own. None when
/// it had no other document, or nothing can be read or written.
std::optional<Recovery> recover_previous_document(Journal& journal);

/// The journal goes on with what is done to the session (the recovery's, wherever it is by now) from now on.
/// What could not be followed is cut off; a copy of the whole is put aside then, and the fault tells where.
/// None when the journal cannot be changed.
std::unique_ptr<Journal> go_on(Session& session, Recovery& recovery);

}  // namespace tq
