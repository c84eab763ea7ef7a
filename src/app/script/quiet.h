// Lines that are not answered one by one.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/patch/session.h"

namespace tq {

/// A line of a script, a file of it and its number from 1 on.
struct ScriptPlace {
    std::string file;
    long line = 0;
};

/// "song.txt:17"
std::string text_of(const ScriptPlace& place);

/// Stretches of lines that say nothing, and what came of each. Meanwhile the session is hushed, and what the
/// box complains of is kept for the end.
class Quiet : private SessionListener {
 public:
    explicit Quiet(Session& session) : session_(session) { session.listen(*this); }

    bool on() const { return on_; }
    /// Begins a stretch, unless one has begun.
    void begin();
    /// Ends it. What came of it: lines that were run, events and steps of the history that there are more
    /// than before, and the mistakes, of which the first 20 are told. Nothing when none had begun.
    std::vector<std::string> end();

    /// The line at this place is being run, until line_ends().
    void line_begins(const ScriptPlace& place);
    void line_ends() { in_line_ = false; }
    /// Something was wrong with the line at this place.
    void note_mistake(const ScriptPlace& place, const std::string& what);
    /// What the box complains of in a line that is not in a stretch.
    std::function<void(const ScriptPlace&, const std::string&)> complained = [](auto&&...) {};

 private:
    struct Counts {
        long events = 0, steps = 0;
    };
    void error(const Object&, const std::string& text) override;
    Counts counts() const;

    Session& session_;
    bool on_ = false, in_line_ = false;
    ScriptPlace place_;  ///< of the line that was run last
    Counts before_;
    long lines_ = 0, mistakes_ = 0;
    std::vector<std::string> told_;  ///< the first mistakes
};

}  // namespace tq
