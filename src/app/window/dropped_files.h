// Files that other programs let go over a window.
#pragma once

#include <string>
#include <vector>

class QDropEvent;

namespace tq {

/// The files of this machine that are dragged, or dropped. Where there are any, the event is accepted, and
/// they stay where they are, whatever their owner proposes.
std::vector<std::string> take_files(QDropEvent& event);

}  // namespace tq
