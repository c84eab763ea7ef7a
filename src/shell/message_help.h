// What the messages take and do, in a line each.
#pragma once

#include <span>
#include <string_view>

namespace tq {

struct MessageHelp {
    const char *name, *takes, *does;  ///< what it takes, in brackets where it may be left out
};

/// One row a message.
std::span<const MessageHelp> message_help();
/// None of that name: no row.
const MessageHelp* find_message_help(std::string_view name);

/// What follows the name in an "event" message, in any order.
std::span<const MessageHelp> event_help();

}  // namespace tq
