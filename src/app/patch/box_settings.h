// What a user has set of the box for good: the attributes that the next box begins with.
#pragma once

#include <string>
#include <vector>

#include "app/patch/calls.h"
#include "host/attribute.h"
#include "instance/prseq.h"

namespace tq {

/// What an attribute is in a new box, as its class says.
Atoms default_of(const Attribute& attribute);
bool has_default(const Prseq& box, const Attribute& attribute);

/// What a box that is worked with by hand is sent at its beginning: how it begins for everyone, and then what
/// was kept. What is wrong with the file that keeps it is in `fault`; it counts for nothing then.
std::vector<MessageCall> first_messages(std::string& fault);
/// Keeps what of the box is different from how it begins for everyone. False, and why, when that cannot be
/// written.
bool keep_settings(const Prseq& box, std::string& fault);

}  // namespace tq
