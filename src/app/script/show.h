// What ".show" prints of a box.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tq {

struct Prseq;

/// The lines for "parts", "view", "events", "layers" or "document"; none for anything else.
std::optional<std::vector<std::string>> show_lines(Prseq& box, const std::string& what);

}  // namespace tq
