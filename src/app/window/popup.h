// The menus that the box asks for.
#pragma once

#include <optional>
#include <span>

#include "host/geometry.h"
#include "host/popup.h"

class QWidget;

namespace tq {

/// Shows a menu at a point of the widget; the index of the item that is chosen, or none.
std::optional<size_t> choose_below(const QWidget& widget, Point at, std::span<const PopupItem> items);

}  // namespace tq
