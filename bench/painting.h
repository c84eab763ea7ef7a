// What a frame costs.
#pragma once

namespace bench {

void painting_rows();

}  // namespace bench
