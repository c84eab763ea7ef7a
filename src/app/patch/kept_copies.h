// Copies of documents that were replaced before they were saved.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tq {

/// Writes a copy into the user's state folder, named by the document and the time. Its path; none, and the
/// reason in `fault`, when it cannot be written. Of the copies before, those go that are older than 30 days
/// and not among the latest 100.
std::optional<std::string> keep_copy(const std::string& document, const std::string& text,
                                     std::string& fault);

/// All copies, the latest first.
std::vector<std::filesystem::path> kept_copies();
/// The name of the document's file that a copy is of; empty: it was never saved.
std::string document_of_copy(const std::filesystem::path& copy);

}  // namespace tq
