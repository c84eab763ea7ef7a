// The words that lines can say: names, what they take, and what is like them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tq {

using Names = std::vector<std::string>;

/// Messages, attributes and "get" with an attribute.
Names message_names();
/// Driver lines, but for those that only journals have.
Names driver_line_names();
/// Whether a line of this name tells what was recorded, and is none to be typed.
bool is_of_journals(std::string_view name);
Names command_names();

/// The name that a word may have been meant for, by as few slips of the hand as can be; empty when none is
/// like it.
std::string nearest_name(const Names& names, std::string_view word);

/// What can stand at the end of a line: the names that begin with its last word.
Names completions(std::string_view line);
/// What all of them begin with.
std::string common_beginning(const Names& names);

/// What a "help" line asks about, perhaps nothing; none where the line is another one.
std::optional<std::string> name_to_help_with(const std::string& line);
/// What is known of a message, an attribute, a driver line or a command, as lines of text; of a word that is
/// none of these, all that it stands in; without a name, all names.
Names help_on(std::string_view name);

}  // namespace tq
