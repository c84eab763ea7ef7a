// Prints everything that a session says, one line a thing.
#pragma once

#include <iosfwd>
#include <string>

#include "app/patch/session.h"

namespace tq {

/// Whether what leaves an outlet reports what has become of the box: all but what is played.
inline bool is_report(int outlet) { return outlet != OutletPlaying; }
/// A message as it is printed, behind where it comes from. A plain list goes without its selector.
std::string said_text(const std::string& from, Symbol selector, AtomSpan atoms);

/// While the session is hushed, only what is played, and what was asked for, is printed.
class SessionPrinter : public SessionListener {
 public:
    /// With `times`, every line begins with the logical time in ms.
    SessionPrinter(Session& session, std::ostream& out, bool times);
    void say(const std::string& line);

    void outlet(int outlet, Symbol selector, AtomSpan atoms) override;
    void dumpout(Symbol selector, AtomSpan atoms) override;
    void receiver(Symbol name, Symbol selector, AtomSpan atoms) override;
    void post(const std::string& text) override;
    void error(const Object& object, const std::string& text) override;

 private:
    void say_message(const std::string& from, Symbol selector, AtomSpan atoms);

    const Session& session_;
    const Scheduler& scheduler_;
    std::ostream& out_;
    bool times_;
};

}  // namespace tq
