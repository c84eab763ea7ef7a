// The keys that a user wants otherwise, kept among the settings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/window/shortcuts.h"

namespace tq {

using KeyChanges = std::vector<KeyChange>;

/// One line a change: a command's name and its keys, with "; " between them, or "none". Comments begin with
/// "#". What is wrong with a line goes to `faults`, and it counts for nothing.
KeyChanges parse_key_changes(std::string_view text, std::vector<std::string>& faults);

/// Those that are kept; none where nothing is.
KeyChanges kept_keys(std::vector<std::string>& faults);
/// Keeps what presses this from now on, beside all else that is in the file; without keys, what does so at
/// the beginning. False, and why, when it cannot be written.
bool keep_key(const Shortcut::What& what, const std::optional<QList<QKeySequence>>& keys, std::string& fault);

}  // namespace tq
