// Recent files as items of a menu.
#pragma once

#include <functional>
#include <string>

class QMenu;

namespace tq {

/// Appends the documents that were opened or saved last, those that are gone in grey; how many there are.
size_t add_recent_files(QMenu& menu, const std::function<void(const std::string& path)>& open);

}  // namespace tq
