#include "app/script/known_words.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>

#include "app/patch/session.h"
#include "app/script/line_usage.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "interaction/mouse_modes.h"
#include "shell/instance.h"
#include "shell/message_help.h"

namespace tq {

namespace {

constexpr std::array<std::string_view, 2> of_journals{".file", ".replay"};

/// The least number of letters to be put in, left out, changed, or swapped with the next.
size_t slips(std::string_view a, std::string_view b) {
    std::vector<std::vector<size_t>> of(a.size() + 1, std::vector<size_t>(b.size() + 1));
    for (size_t i = 0; i <= a.size(); ++i) of[i][0] = i;
    std::iota(of[0].begin(), of[0].end(), size_t{0});
    for (size_t i = 1; i <= a.size(); ++i)
        for (size_t j = 1; j <= b.size(); ++j) {
            of[i][j] =
                std::min({of[i - 1][j] + 1, of[i][j - 1] + 1, of[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                of[i][j] = std::min(of[i][j], of[i - 2][j - 2] + 1);
        }
    return of[a.size()][b.size()];
}

Names mode_names() {
    Names names;
    for (const MouseModeRow& row : mouse_modes()) names.push_back(row.name);
    return names;
}

/// A tag and its end stand as two words.
Names event_words() {
    Names names;
    for (const MessageHelp& row : event_help()) {
        names.push_back(row.name);
        if (*row.name == '<') names.push_back(std::string("</") + (row.name + 1));
    }
    return names;
}

Names all_names() {
    Names names = message_names();
    for (const Names& more : {driver_line_names(), command_names()})
        names.insert(names.end(), more.begin(), more.end());
    return names;
}

Names first_words() {
    Names names = message_names();
    names.push_back("help");
    const Names lines = driver_line_names();
    names.insert(names.end(), lines.begin(), lines.end());
    return names;
}

/// What follows a line's first word.
constexpr struct {
    std::string_view first;
    Names (*words)();
} following_words[] = {
    {"event", event_words}, {"mouse_mode", mode_names}, {".command", command_names}, {"help", all_names}};

std::string usage(const MessageHelp& row) {
    return fmt::format("{}{}{}: {}", row.name, *row.takes ? " " : "", row.takes, row.does);
}

std::string values_of(const Attribute& attribute) {
    using enum Attribute::Type;
    if (attribute.type == Rgba) return "RED GREEN BLUE [ALPHA]";
    if (attribute.type == Name) return "NAME";
    if (attribute.style == "onoff") return "0|1";
    if (attribute.clip) return fmt::format("{} to {}", attribute.clip->first, attribute.clip->second);
    return attribute.type == Float ? "NUMBER" : "WHOLE NUMBER";
}

std::string usage(const Attribute& attribute) {
    std::string text = fmt::format("{} {}: {}; to begin with {}", attribute.name.text(), values_of(attribute),
                                   attribute.label, attribute.default_value);
    for (size_t i = 0; i < attribute.enums.size(); ++i)
        text += fmt::format("{}{} {}", i ? ", " : "; ", i, attribute.enums[i]);
    return text;
}

void add_message(Names& lines, std::string_view name) {
    const MessageHelp* message = find_message_help(name);
    if (!message) return;
    lines.push_back(usage(*message));
    if (name == "event")
        for (const MessageHelp& row : event_help()) lines.push_back("  " + usage(row));
    if (name == "mouse_mode") lines.push_back(fmt::format("  {}", fmt::join(mode_names(), " ")));
}

void add_attribute(Names& lines, std::string_view name) {
    const Class& c = prseq_class();
    const bool asks = name.starts_with("get");
    const Attribute* attribute = c.find_attribute(gensym(asks ? name.substr(3) : name));
    if (attribute) lines.push_back((asks ? "asks for " : "") + usage(*attribute));
}

void add_line(Names& lines, std::string_view name) {
    const auto add = [&](const auto& row) {
        if (row.name == name) lines.push_back(usage_of_row(row));
    };
    std::apply([&](const auto&... row) { (add(row), ...); }, line_rows);
    if (name == ".command") lines.push_back(fmt::format("  {}", fmt::join(command_names(), " ")));
}

void add_command(Names& lines, std::string_view name) {
    const CommandRow* row = find_command(name);
    if (!row) return;
    const Session blank;  // in which nothing was done yet
    lines.push_back(fmt::format(".command {}: {}", name, row->text(blank.box())));
}

Names names_of_methods() {
    Names names;
    for (const Method& method : prseq_class().methods()) names.push_back(method.name.text());
    return names;
}

Names names_of_attributes() {
    Names names;
    for (const Attribute& attribute : prseq_class().attributes()) names.push_back(attribute.name.text());
    return names;
}

Names overview() {
    return {fmt::format("messages: {}", fmt::join(names_of_methods(), " ")),
            fmt::format("attributes (NAME VALUE sets one, getNAME asks): {}",
                        fmt::join(names_of_attributes(), " ")),
            fmt::format("lines of the driver: {}", fmt::join(driver_line_names(), " ")),
            fmt::format("commands, for \".command\": {}", fmt::join(command_names(), " ")),
            "\"help NAME\" tells what one of them takes, \"help WORD\" which of them are about something"};
}

std::string lower(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](unsigned char c) { return std::tolower(c); });
    return small;
}

void add_all_about(Names& lines, std::string_view name) {
    for (const auto add : {add_message, add_attribute, add_line, add_command}) add(lines, name);
}

/// All whose help has the word in it.
Names about(std::string_view word) {
    Names all, found;
    for (const Names& names :
         {names_of_methods(), names_of_attributes(), driver_line_names(), command_names()})
        for (const std::string& name : names) add_all_about(all, name);
    for (const std::string& line : all) {
        const bool fits = line.front() != ' ' && lower(line).find(lower(word)) != std::string::npos;
        if (fits && std::ranges::find(found, line) == found.end()) found.push_back(line);
    }
    return found;
}

}  // namespace

Names message_names() {
    Names names = names_of_methods();
    for (const std::string& attribute : names_of_attributes()) {
        names.push_back(attribute);
        names.push_back("get" + attribute);
    }
    return names;
}

Names driver_line_names() {
    Names names;
    const auto add = [&](const auto& row) {
        if (!is_of_journals(row.name)) names.emplace_back(row.name);
    };
    std::apply([&](const auto&... row) { (add(row), ...); }, line_rows);
    return names;
}

bool is_of_journals(std::string_view name) {
    return std::ranges::find(of_journals, name) != of_journals.end();
}

Names command_names() {
    Names names;
    for (const CommandRow& row : commands()) names.push_back(row.name);
    return names;
}

std::string nearest_name(const Names& names, std::string_view word) {
    constexpr size_t longest = 64;
    if (word.size() > longest) return "";
    std::string nearest;
    size_t fewest = 1 + std::max<size_t>(1, word.size() / 3);
    for (const std::string& name : names)
        if (const size_t count = slips(word, name); count < fewest) {
            fewest = count;
            nearest = name;
        }
    return nearest;
}

Names completions(std::string_view line) {
    const size_t blank = line.find_last_of(' ');
    const std::string_view word = line.substr(blank + 1);  // from the beginning, without a blank
    Names names;
    if (line.find_first_not_of(' ') >= line.size() - word.size()) {
        names = first_words();
    } else {
        const std::string_view from_first = line.substr(line.find_first_not_of(' '));
        const std::string_view first = from_first.substr(0, from_first.find(' '));
        for (const auto& row : following_words)
            if (row.first == first) names = row.words();
    }
    std::erase_if(names, [&](const std::string& name) { return !name.starts_with(word); });
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::string common_beginning(const Names& names) {
    if (names.empty()) return "";
    std::string common = names.front();
    for (const std::string& name : names) common.erase(std::ranges::mismatch(common, name).in1, common.end());
    return common;
}

Names help_on(std::string_view name) {
    if (name.empty()) return overview();
    constexpr size_t shortest = 3;  // letters of a word that is looked for
    Names lines;
    add_all_about(lines, name);
    if (lines.empty() && name.size() >= shortest) lines = about(name);
    if (!lines.empty()) return lines;
    lines.push_back(fmt::format("nothing is called \"{}\"", name));
    if (const std::string meant = nearest_name(all_names(), name); !meant.empty())
        lines.back() += fmt::format("; did you mean \"{}\"?", meant);
    return lines;
}

std::optional<std::string> name_to_help_with(const std::string& line) {
    constexpr std::string_view help = "help";
    if (line.find(help) != line.find_first_not_of(' ')) return {};  // most lines are not taken apart
    const std::vector<MessageWord> words = message_words(line);
    if (words.empty() || words[0].text != help || words[0].literal) return {};
    return words.size() > 1 ? words[1].text : "";
}

}  // namespace tq
