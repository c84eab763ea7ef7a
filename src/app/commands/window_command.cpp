#include <cstdio>

#include "app/commands/commands.h"

namespace tq {
int run_window(const WindowCommand&) { return 1; }
}  // namespace tq
