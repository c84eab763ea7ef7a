// The script driver: drives one box in virtual time, line by line, and prints everything that it says.
#pragma once

#include <deque>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "app/patch/paint_offscreen.h"
#include "app/patch/session.h"

namespace tq {

struct ScriptOptions {
    double width = 400, height = 300;
    std::string document;                                     ///< read before the first line; empty: none
    std::function<void(Session&)> prepare = [](Session&) {};  ///< called before that
    bool times = false;  ///< every line of output begins with the virtual time in ms
};

/// A line that is not understood.
struct ScriptFault {
    std::string file;
    long line = 0;
    std::string what;
};

class Script : private SessionListener {
 public:
    Script(const ScriptOptions& options, std::ostream& out);
    /// Runs all lines of a script. Throws a ScriptFault at the first that is not understood.
    void run(std::istream& lines, const std::string& name);
    Session& session() { return session_; }

 private:
    friend struct ScriptCommands;
    void outlet(int outlet, Symbol selector, AtomSpan atoms) override;
    void dumpout(Symbol selector, AtomSpan atoms) override;
    void receiver(Symbol name, Symbol selector, AtomSpan atoms) override;
    void post(const std::string& text) override;
    void error(const Object& object, const std::string& text) override;
    void redraw() override { redraw_asked_ = true; }

    void run_line(const std::string& line);
    void say(const std::string& line);
    void say_message(const std::string& from, Symbol selector, AtomSpan atoms);
    void paint_if_asked();

    /// What the next file dialog is answered with; none left: it is cancelled.
    std::optional<std::string> take_answer();

    Session session_;
    std::deque<std::optional<std::string>> answers_;
    OffscreenPainter painter_;
    std::ostream& out_;
    bool times_;
    bool redraw_asked_ = true;
};

}  // namespace tq
