// How a written file says which tracks and channels are one part, in the words that are free for everybody's
// own use: a part with many bends needs many channels.
#pragma once

#include <string_view>

namespace tq {

inline constexpr std::string_view part_begins = "\x7dsorvo part";
inline constexpr std::string_view part_goes_on = "\x7dsorvo part goes on";

}  // namespace tq
