// Asks whether sessions that ended unexpectedly are to come back.
#pragma once

#include <optional>

#include "app/journal/recovery.h"

namespace tq {

/// Asks about one after the other, the latest first, until one is brought back or all wait for later. None
/// when the user wants none now; those that were not discarded stay.
std::optional<Recovery> ask_for_recovery(const std::vector<DeadSession>& sessions);

}  // namespace tq
