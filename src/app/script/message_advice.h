// What is said of messages that are understood and yet do nothing useful.
#pragma once

#include <string>
#include <vector>

#include "app/patch/calls.h"

namespace tq {

struct Prseq;

/// What there is to say of a line to the box, as the box is before it is sent. Where the box complains by
/// itself, there is nothing.
std::vector<std::string> advice_on(const Prseq& box, const MessageCall& message, bool begins_with_number);
/// Whether the box has a message or an attribute of this name.
bool is_understood(Symbol selector);

}  // namespace tq
