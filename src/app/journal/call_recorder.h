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

class CallRecorder : public CallListener, public CrashWitness {
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
    void painting() override;
    void painted() override;
    void crashed() noexcept override;

 private:
    /// All that a paint may change.
    struct View {
        Layout layout;
        MainDisplay maindisplay;
        KeyDisplay keydisplay;
        TQScrollbar horizontal, vertical;
        ZoomScroll unity;
        friend bool operator==(const View&, const View&) = default;
    };
    View view() const;
    void begin(bool fresh);
    void install_files();
    std::optional<std::string> note_answer(double asked, std::optional<std::string> answer);
    double now() const { return session_.host().scheduler.now(); }
    void wait_until(double time);
    void write(std::string_view line);
    void note_document();

    Session& session_;
    JournalFile& journal_;
    PatchFiles outside_;  ///< who answers
    std::string text_;    ///< what is to be appended after the call that is running
    std::string line_;    ///< of that call
    bool running_ = false;
    double written_ = 0;  ///< the logical time that a replay has reached at the end of the journal
    View before_;         ///< the paint that is going on
    /// The first and the last paint since the last call that changed the view.
    std::optional<double> first_painted_, last_painted_;
    std::string document_;
    bool edited_ = false;
};

}  // namespace tq
