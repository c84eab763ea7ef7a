// Text is UTF-8; bytes from outside may be anything.
#pragma once

#include <string>
#include <string_view>

namespace tq {

bool is_utf8(std::string_view bytes);
/// The text as it is when it is UTF-8; otherwise each byte counts as a character of Latin-1.
std::string valid_utf8(std::string_view bytes);

}  // namespace tq
