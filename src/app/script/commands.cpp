#include "app/script/commands.h"

#include <fmt/format.h>

#include <algorithm>

#include "app/script/script.h"
#include "app/script/show.h"
#include "shell/change.h"
#include "view/mousewheel.h"

namespace tq {

namespace {

[[noreturn]] void fault(const std::string& what) { throw ScriptFault{"", 0, what}; }

/// The words after a driver line's name, taken one by one.
class Words {
 public:
    explicit Words(const std::string& line) : atoms_(atom_setparse(line)) {}

    std::string name() { return word("a name"); }
    bool more() const { return next_ < atoms_.size(); }
    std::string word(const std::string& what) {
        if (!more()) fault("missing: " + what);
        return atom_text(atoms_[next_++]);
    }
    double number(const std::string& what) {
        if (!more() || !atoms_[next_].is_number()) fault("missing: " + what);
        return atoms_[next_++].as_double();
    }
    double number_between(const std::string& what, double low, double high) {
        double value = number(what);
        if (!(value >= low && value <= high))
            fault(fmt::format("{} must lie between {} and {}", what, low, high));
        return value;
    }
    bool on_off() {
        std::string value = word("on or off");
        if (value != "on" && value != "off") fault("neither on nor off: " + value);
        return value == "on";
    }
    void end() const {
        if (more()) fault("one word too many: " + atom_text(atoms_[next_]));
    }

 private:
    /// A symbol as it is, a number as its text.
    static std::string atom_text(const Atom& atom) {
        return atom.is_symbol() ? atom.as_symbol().text() : atom_gettext(Atoms{atom});
    }
    Atoms atoms_;
    size_t next_ = 0;
};

}  // namespace

/// What the rows of the table do; each takes its words and nothing more.
struct ScriptCommands {
    static void wait(Script& script, Words& words) {
        double ms = words.number_between("ms", 0, 1e12);
        words.end();
        Scheduler& scheduler = script.session_.host().scheduler;
        scheduler.run_until(scheduler.now() + ms);
    }
    static void size(Script& script, Words& words) {
        Prseq& box = script.session_.box();
        double width = words.number_between("width", 1, 16384),
               height = words.number_between("height", 1, 16384);
        words.end();
        jbox_set_size(box, {width, height});
    }
    static void paint(Script& script, Words& words) {
        Prseq& box = script.session_.box();
        std::string file = words.more() ? words.word("a file") : "";
        words.end();
        script.redraw_asked_ = false;
        if (file.empty())
            script.painter_.paint(box);
        else if (auto reason = script.painter_.paint_to_png(box, file))
            object_error(box, *reason);
    }
    static void wheel(Script& script, Words& words) {
        double x = words.number("X"), y = words.number("Y"), dx = words.number("DX"), dy = words.number("DY");
        words.end();
        prseq_mousewheel(script.session_.box(), x, y, 0, dx, dy);
    }
    static void focus(Script& script, Words& words) {
        std::string way = words.word("in or out");
        words.end();
        if (way != "in" && way != "out") fault("neither in nor out: " + way);
        script.session_.box().focus = way == "in";
        prseq_show(script.session_.box(), Change::UpperDisplay);
    }
    static void tempo(Script& script, Words& words) {
        double bpm = words.number_between("tempo", 1, 10000);
        words.end();
        itm_settempo(*script.session_.box().transport, bpm);
    }
    static void transport(Script& script, Words& words) {
        double ms = words.number_between("ms", 0, 1e12);
        words.end();
        Itm& itm = *script.session_.box().transport;
        itm_setticks(itm, itm_mstoticks(itm, ms));
    }
    static void feedback(Script& script, Words& words) {
        bool on = words.on_off();
        words.end();
        script.session_.feedback = on;
    }
    static void receiver(Script& script, Words& words) {
        std::string name = words.name();
        words.end();
        script.session_.make_receiver(gensym(name));
    }
    static void answer(Script& script, Words& words) {
        std::string file = words.word("a file, or cancel");
        words.end();
        script.answers_.push_back(file == "cancel" ? std::nullopt : std::optional(file));
    }
    static void buffer(Script& script, Words& words) {
        Host& host = script.session_.host();
        const Symbol name = gensym(words.name());
        const std::string file = words.more() ? words.word("a file") : "";
        words.end();
        if (file.empty())
            buffer_remove(host, name);
        else if (auto reason = buffer_read(host, name, file))
            object_error(script.session_.box(), *reason);
    }
    static void show(Script& script, Words& words) {
        std::string what = words.word("what to show");
        words.end();
        std::optional<std::vector<std::string>> lines = show_lines(script.session_.box(), what);
        if (!lines) fault("cannot show \"" + what + "\"");
        for (const std::string& line : *lines) script.say(line);
    }
};

namespace {

struct CommandRow {
    const char* name;
    void (*run)(Script&, Words&);
};

constexpr CommandRow commands[] = {
    {".wait", ScriptCommands::wait},           {".size", ScriptCommands::size},
    {".paint", ScriptCommands::paint},         {".wheel", ScriptCommands::wheel},
    {".focus", ScriptCommands::focus},         {".tempo", ScriptCommands::tempo},
    {".transport", ScriptCommands::transport}, {".feedback", ScriptCommands::feedback},
    {".receiver", ScriptCommands::receiver},   {".answer", ScriptCommands::answer},
    {".buffer", ScriptCommands::buffer},       {".show", ScriptCommands::show},
};

}  // namespace

void run_command(Script& script, const std::string& line) {
    Words words(line);
    std::string name = words.name();
    auto row = std::find_if(std::begin(commands), std::end(commands),
                            [&](const CommandRow& r) { return name == r.name; });
    if (row == std::end(commands)) fault("no such line: " + name);
    row->run(script, words);
    script.session().host().scheduler.run_due();
}

}  // namespace tq
