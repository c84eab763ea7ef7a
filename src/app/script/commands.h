// What the driver's lines do.
#pragma once

#include <string>

namespace tq {

class Driver;

/// Runs a line. Throws a ScriptFault when it is not understood.
void run_command(Driver& driver, const std::string& line);

}  // namespace tq
