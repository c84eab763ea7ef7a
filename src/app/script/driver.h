// Drives a session by lines: a line is a message to the box, or begins with a dot and is the driver's own.
#pragma once

#include <deque>
#include <iosfwd>
#include <optional>
#include <string>

#include "app/patch/session.h"
#include "app/script/lines.h"
#include "app/script/quiet.h"
#include "app/script/running_scripts.h"

namespace tq {

/// Runs lines in virtual time; times in them may be told in beats of the transport's tempo. How time passes,
/// what paints and who hears what is said are the business of those that derive from it. File dialogs and
/// file accesses are answered from the lines, and by whoever answered them before when no line does.
class Driver : private PatchFiles {
 public:
    explicit Driver(Session& session);
    ~Driver() override;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// Runs all lines. Throws a ScriptFault at the first that is not understood.
    void run(std::istream& lines, const std::string& name);
    /// Runs the line at a place; an empty one and a comment do nothing. Throws a ScriptFault.
    void run_line(const std::string& text, const ScriptPlace& place);
    /// Whether lines that follow are left without an answer, and what came of them is said at their end.
    void set_quiet(bool on);
    Session& session() { return session_; }

 protected:
    /// A line that ".show" prints, or a dialog that is asked for.
    virtual void say(const std::string&) {}
    /// ".wait": lets time pass.
    virtual void wait(double ms);
    /// ".size": gives the box a size.
    virtual void resize(Size size);
    /// ".paint": paints now, into a PNG of that pixel ratio when `file` is not empty; where nobody looks,
    /// nothing.
    virtual void paint(const std::string& file, double ratio) {
        static_cast<void>(file);
        static_cast<void>(ratio);
    }
    /// ".run": the lines of a file come next. Throws a ScriptFault without place.
    virtual void run_script(const std::string& file) { scripts_.begin(file); }
    /// ".stop": the scripts that are running end here.
    virtual void stop_scripts() { scripts_.stop(); }
    /// ".quit": nothing can be closed here.
    virtual void quit();
    /// The bytes that ".file read" names; none, and the reason in `fault`, when they are not there.
    virtual FileBytes kept_bytes(const std::string& name, std::string& fault);
    /// A message was understood and yet does not what was meant.
    virtual void advise(const ScriptPlace& place, const std::string& what) {
        static_cast<void>(place);
        static_cast<void>(what);
    }
    /// Before each line; may throw a ScriptFault.
    virtual void line_begins(long /*number*/) {}
    /// After each line.
    virtual void line_done() {}

    /// The lines are a recorded session: it is painted only where it says so, and no file is touched.
    bool replaying() const { return replaying_; }
    RunningScripts& scripts() { return scripts_; }
    Quiet& quiet() { return quiet_; }
    /// A line whose times are in ms.
    std::string in_ms(const std::string& line) const;

 private:
    friend struct DriverCommands;
    std::optional<std::string> open_dialog() override;
    std::optional<std::string> save_dialog(const std::string& name) override;
    std::optional<size_t> popup(std::span<const PopupItem> items, Point at) override;
    std::optional<LocatedFile> locate(const std::string& name, const std::string& folder) override;
    FileBytes read(const std::string& path, std::string& fault) override;
    bool write(const std::string& path, std::string_view bytes, std::string& fault) override;
    void keep_copy(const Object& object, const std::string& text) override;
    template <typename Ask>
    std::optional<std::string> take_answer(const std::string& said, Ask ask);
    /// The outcome of the file access that is going on; none: it is to be done. Notes a fault when the lines
    /// tell of another access.
    std::optional<FileLine> take_outcome(FileLine::Kind good, FileLine::Kind bad);
    void note_fault(const std::string& what);
    void look_for_slips(const MessageCall& message);

    Session& session_;
    ScriptPlace place_;  ///< of the line that is being run
    RunningScripts scripts_;
    Quiet quiet_{session_};
    std::deque<AnswerLine> answers_;
    std::deque<ChooseLine> choices_;
    std::deque<FileLine> outcomes_;
    std::optional<std::string> fault_;  ///< of the line that is being run
    bool replaying_ = false;
};

}  // namespace tq
