// Lines with line ends in them: ".lines N" before them says how many lines of a file they take.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace tq {

/// More bytes than this no line may have: input that never ends is refused before memory does.
inline constexpr size_t longest_line = 16 << 20;

/// Appends a line as a file has it, with its end.
void append_framed(std::string& text, std::string_view line);
/// Takes the next line of a file whole; false at the file's end. `number` is that of the last line taken and
/// goes on. Throws a ScriptFault without file and line when a line is missing or too long.
bool read_framed(std::istream& lines, std::string& line, long& number);
/// Without a last line, or several that are one, that is not whole.
std::string_view whole_lines(std::string_view text);

}  // namespace tq
