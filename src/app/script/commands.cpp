#include "app/script/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "app/patch/host_calls.h"
#include "app/script/driver.h"
#include "app/script/show.h"

namespace tq {

namespace {

[[noreturn]] void fault(const std::string& what) { throw ScriptFault{"", 0, what}; }

/// The words after a driver line's name, taken one by one. Numbers have double precision.
class Words {
 public:
    explicit Words(const std::string& line) : words_(message_words(line)) {}

    std::string name() { return word("a name"); }
    bool more() const { return next_ < words_.size(); }
    std::string word(const std::string& what) {
        if (!more()) fault("missing: " + what);
        return words_[next_++].text;
    }
    double number(const std::string& what) {
        std::optional<double> value = more() ? parsed(words_[next_]) : std::nullopt;
        if (!value) fault("missing: " + what);
        ++next_;
        return *value;
    }
    double number_between(const std::string& what, double low, double high) {
        double value = number(what);
        if (!(value >= low && value <= high))
            fault(fmt::format("{} must lie between {} and {}", what, low, high));
        return value;
    }
    /// One of two words; whether it is the first.
    bool either(const std::string& first, const std::string& second) {
        std::string value = word(first + " or " + second);
        if (value != first && value != second) fault("neither " + first + " nor " + second + ": " + value);
        return value == first;
    }
    void end() const {
        if (more()) fault("one word too many: " + words_[next_].text);
    }

 private:
    static std::optional<double> parsed(const MessageWord& word) {
        const char *begin = word.text.data(), *end = begin + word.text.size();
        if (word.literal) return {};
        if (begin != end && *begin == '+') ++begin;
        double value = 0;
        auto [stop, error] = std::from_chars(begin, end, value);
        bool number = stop == end && error == std::errc() && std::isfinite(value);
        return number ? std::optional(value) : std::nullopt;
    }
    std::vector<MessageWord> words_;
    size_t next_ = 0;
};

}  // namespace

/// What the rows of the table do; each takes its words and nothing more.
struct DriverCommands {
    static void wait(Driver& driver, Words& words) {
        double ms = words.number_between("ms", 0, 1e12);
        words.end();
        driver.wait(ms);
    }
    static void size(Driver& driver, Words& words) {
        double width = words.number_between("width", 1, 16384),
               height = words.number_between("height", 1, 16384);
        words.end();
        driver.resize({width, height});
    }
    static void paint(Driver& driver, Words& words) {
        std::string file = words.more() ? words.word("a file") : "";
        words.end();
        driver.paint(file);
    }
    static void wheel(Driver& driver, Words& words) {
        double x = words.number("X"), y = words.number("Y"), dx = words.number("DX"), dy = words.number("DY");
        words.end();
        call_wheel(driver.session_, {x, y}, dx, dy);
    }
    static void key(Driver& driver, Words& words) {
        const long code = static_cast<long>(words.number_between("key code", -1000, 0x10ffff));
        unsigned modifiers = 0;
        while (words.more()) {
            const std::string name = words.word("a modifier");
            auto row = std::ranges::find(modifier_names, name, &ModifierName::name);
            if (row == std::end(modifier_names)) fault("no modifier: " + name);
            modifiers |= row->bit;
        }
        call_key(driver.session_, code, modifiers);
    }
    static void focus(Driver& driver, Words& words) {
        bool in = words.either("in", "out");
        words.end();
        call_focus(driver.session_, in);
    }
    static void tempo(Driver& driver, Words& words) {
        double bpm = words.number_between("tempo", 1, 10000);
        words.end();
        call_tempo(driver.session_, bpm);
    }
    static void transport(Driver& driver, Words& words) {
        double ms = words.number_between("ms", 0, 1e12);
        words.end();
        call_transport(driver.session_, ms);
    }
    static void feedback(Driver& driver, Words& words) {
        bool on = words.either("on", "off");
        words.end();
        call_feedback(driver.session_, on);
    }
    static void receiver(Driver& driver, Words& words) {
        std::string name = words.name();
        words.end();
        call_receiver(driver.session_, name);
    }
    static void seed(Driver& driver, Words& words) {
        double seed = words.number_between("seed", 0, 4294967295.);
        words.end();
        call_seed(driver.session_, static_cast<std::uint32_t>(seed));
    }
    static void buffer(Driver& driver, Words& words) {
        const std::string name = words.name();
        const std::string file = words.more() ? words.word("a file") : "";
        words.end();
        if (!driver.replaying_)
            call_buffer(driver.session_, name, file);  // ".sound" has told what came of it
    }
    static void sound(Driver& driver, Words& words) {
        const Symbol name = gensym(words.name());
        std::optional<SoundFormat> format;
        if (words.more())
            format = SoundFormat{static_cast<long>(words.number_between("frames", 0, 1e9)),
                                 static_cast<long>(words.number_between("channels", 1, 1024)),
                                 words.number_between("rate", 1, 1e9)};
        const std::string file = words.more() ? words.word("a file") : "";
        words.end();
        constexpr double most_samples = 1 << 28;
        if (format &&
            static_cast<double>(format->frames) * static_cast<double>(format->channels) > most_samples)
            fault("too much sound");
        call_sound(driver.session_, name, format, file);
    }
    static void open(Driver& driver, Words& words) {
        std::string file = words.word("a file");
        words.end();
        call_open(driver.session_, file);
    }
    static void import(Driver& driver, Words& words) {
        std::string file = words.word("a file");
        words.end();
        call_import(driver.session_, file);
    }
    static void answer(Driver& driver, Words& words) {
        std::string file = words.word("a file, or cancel");
        Driver::Answer answer{file == "cancel" ? std::nullopt : std::optional(file), std::nullopt};
        if (words.more()) answer.ms = words.number_between("ms", 0, 1e12);
        words.end();
        driver.answers_.push_back(std::move(answer));
    }
    static void file(Driver& driver, Words& words) {
        std::string kind = words.word("what comes of a file");
        for (const FileOutcomeName& row : file_outcome_names) {
            if (kind != row.name) continue;
            std::string text = row.has_text ? words.word("a file, or a reason") : "";
            words.end();
            driver.outcomes_.push_back({row.kind, text});
            return;
        }
        fault("nothing that can come of a file: " + kind);
    }
    static void replay(Driver& driver, Words& words) {
        words.end();
        driver.replaying_ = true;
        driver.answers_.clear();  // of a call that was never done
        driver.outcomes_.clear();
    }
    static void show(Driver& driver, Words& words) {
        std::string what = words.word("what to show");
        words.end();
        std::optional<std::vector<std::string>> lines = show_lines(driver.session_.box(), what);
        if (!lines) fault("cannot show \"" + what + "\"");
        for (const std::string& line : *lines) driver.say(line);
    }
};

namespace {

struct CommandRow {
    const char* name;
    void (*run)(Driver&, Words&);
};

constexpr CommandRow commands[] = {
    {".wait", DriverCommands::wait},         {".size", DriverCommands::size},
    {".paint", DriverCommands::paint},       {".wheel", DriverCommands::wheel},
    {".key", DriverCommands::key},           {".focus", DriverCommands::focus},
    {".tempo", DriverCommands::tempo},       {".transport", DriverCommands::transport},
    {".feedback", DriverCommands::feedback}, {".receiver", DriverCommands::receiver},
    {".answer", DriverCommands::answer},     {".buffer", DriverCommands::buffer},
    {".sound", DriverCommands::sound},       {".show", DriverCommands::show},
    {".open", DriverCommands::open},         {".import", DriverCommands::import},
    {".seed", DriverCommands::seed},         {".file", DriverCommands::file},
    {".replay", DriverCommands::replay},
};

}  // namespace

void run_command(Driver& driver, const std::string& line) {
    Words words(line);
    std::string name = words.name();
    auto row = std::find_if(std::begin(commands), std::end(commands),
                            [&](const CommandRow& r) { return name == r.name; });
    if (row == std::end(commands)) fault("no such line: " + name);
    row->run(driver, words);
}

}  // namespace tq
