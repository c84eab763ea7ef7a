// Whether what grows with the document grows no faster than it: the same thing at one size and at ten times
// it.
#pragma once

namespace bench {

void scaling_rows();

}  // namespace bench
