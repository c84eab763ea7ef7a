// Copies of documents that were replaced before they were saved.
#pragma once

#include <optional>
#include <string>

namespace tq {

/// Writes a copy into the user's state folder, named by the document and the time. Its path; none, and the
/// reason in `fault`, when it cannot be written.
std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault);

}  // namespace tq
