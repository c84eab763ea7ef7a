// The icons of the mouse modes in the upper display.
#pragma once

#include <optional>

#include "host/geometry.h"
#include "instance/view_records.h"

namespace tq {

class Graphics;
struct Prseq;

/// Where an icon is, in the upper display.
Rect icon_rect(const Prseq& object, size_t index);
/// From the first icon to the last.
Rect TQ_Prseq_IconMenu_GetRect(const Prseq& object);
/// The mode of the icon at a point of the upper display; edges belong to icons.
std::optional<MouseMode> icon_mode_at(const Prseq& object, Point point);
/// The icon of the present mode is marked.
void TQ_Prseq_IconMenu_DrawIconMenu(const Prseq& object, Graphics& g);

}  // namespace tq
