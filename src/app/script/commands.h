// The driver's own lines: those that begin with a dot.
#pragma once

#include <string>

namespace tq {

class Driver;

/// Runs one. Throws a ScriptFault when it is not understood.
void run_command(Driver& driver, const std::string& line);

}  // namespace tq
