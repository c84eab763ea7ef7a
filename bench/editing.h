// What editing costs in documents of every size.
#pragma once

namespace bench {

void editing_rows();

}  // namespace bench
