// The journal of the session that is running: from it the session comes back, with its history, should the
// program end before the session does.
#pragma once

#include <string>

#include "app/journal/call_recorder.h"
#include "app/journal/journal_file.h"
#include "app/journal/session_folder.h"

namespace tq {

class Journal {
 public:
    /// A `fresh` session is one that nothing was done to; the journal of one that was brought back goes on.
    Journal(Session& session, SessionFolder folder, bool fresh);
    ~Journal();

    /// Why the journal cannot be written at present, once; mostly empty.
    std::string take_fault() { return file_.take_fault(); }
    /// Waits until everything is in the file; false when it cannot be written.
    bool drain() { return file_.drain(); }
    const SessionFolder& folder() const { return folder_; }
    /// The session has ended as it should: the journal is not needed any more, and deleted when this goes.
    void finish() { finished_ = true; }

 private:
    bool finished_ = false;
    SessionFolder folder_;
    JournalFile file_;
    CallRecorder recorder_;
};

}  // namespace tq
