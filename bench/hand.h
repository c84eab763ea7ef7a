// What a hand waits for: a step of a drag, and the pointer that passes over the box.
#pragma once

namespace bench {

void hand_rows();

}  // namespace bench
