#include "app/script/framed_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <istream>
#include <iterator>

#include "app/patch/line_words.h"

namespace tq {

namespace {

constexpr std::string_view several = ".lines ";

/// Part by part, so that a line without an end is refused before memory does.
bool read_one(std::istream& lines, std::string& line) {
    line.clear();
    for (;;) {
        char part[4096];
        lines.getline(part, sizeof part);
        const auto taken = static_cast<size_t>(lines.gcount());
        const bool ended = lines.good();  // the line's end was taken, too
        line.append(part, taken - (ended ? 1 : 0));
        if (line.size() > longest_line)
            throw ScriptFault{"", 0, fmt::format("a line of more than {} MiB", longest_line >> 20)};
        if (ended) return true;
        if (lines.eof() || taken == 0) return !line.empty();
        lines.clear();  // the part was full
    }
}

}  // namespace

void append_framed(std::string& text, std::string_view line) {
    if (const auto ends = std::ranges::count(line, '\n'))
        fmt::format_to(std::back_inserter(text), "{}{}\n", several, ends + 1);
    text += line;
    text += '\n';
}

bool read_framed(std::istream& lines, std::string& line, long& number) {
    ++number;
    if (!read_one(lines, line)) return false;
    if (!line.starts_with(several)) return true;
    long left = std::strtol(line.c_str() + several.size(), nullptr, 10);
    std::string text, part;
    for (; left > 0; --left, ++number) {
        if (text.size() > longest_line || !read_one(lines, part))
            throw ScriptFault{"", 0, "a line is missing"};
        text += part + (left > 1 ? "\n" : "");
    }
    line = std::move(text);
    return true;
}

std::string_view whole_lines(std::string_view text) {
    const std::string frame = "\n" + std::string(several);
    text = text.substr(0, text.rfind('\n') + 1);
    const size_t at = text.rfind(frame);
    if (at == text.npos) return text;
    const auto ends = std::count(text.begin() + static_cast<long>(at) + 1, text.end(), '\n');
    const long count = std::strtol(text.data() + at + frame.size(), nullptr, 10);
    return ends > count ? text : text.substr(0, at + 1);
}

}  // namespace tq
