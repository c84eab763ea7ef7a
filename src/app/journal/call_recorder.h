// Writes down everything that is done to a session, as lines of the script driver, so that running them does
// it again.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/journal/crash_note.h"
#include "app/journal/journal_file.h"
#include "app/patch/session.h"

namespace tq {

class CallRecorder : public CallListener, public CrashWitness, private PatchFiles {
 public:
    /// From now on the session's calls are appended to the journal. A `fresh` session has not been called
    /// before, and what must precede the first call is written; otherwise the journal goes on. Whoever
    /// answers the session's file dialogs is in place by now, and stays.
    CallRecorder(Session& session, JournalFile& journal, bool fresh);
    ~CallRecorder() override;
    CallRecorder(const CallRecorder&) = delete;
    CallRecorder& operator=(const CallRecorder&) = delete;

    void calling(const SessionCall& call) override;
    void called() override;
    void crashed() noexcept override;

 private:
    void begin(bool fresh);
    std::optional<std::string> open_dialog() override;
    std::optional<std::string> save_dialog(const std::string& name) override;
    std::optional<size_t> popup(std::span<const PopupItem> items, Point at) override;
    std::optional<LocatedFile> locate(const std::string& name, const std::string& folder) override;
    FileBytes read(const std::string& path, std::string& fault) override;
    bool write(const std::string& path, std::string_view bytes, std::string& fault) override;
    std::optional<std::string> note_answer(double asked, std::optional<std::string> answer);
    double now() const { return session_.host().scheduler.now(); }
    void wait_until(double time);
    void note(std::string_view line);
    void note_document();

    Session& session_;
    JournalFile& journal_;
    std::string text_;  ///< what is to be appended after the call that is running
    std::string line_;  ///< of that call
    bool running_ = false;
    long emptied_ = 0;           ///< how often the document had been emptied before that call
    bool had_document_ = false;  ///< there was one to empty
    double written_ = 0;         ///< the logical time that a replay has reached at the end of the journal
    std::string document_;
    bool edited_ = false;
};

}  // namespace tq
