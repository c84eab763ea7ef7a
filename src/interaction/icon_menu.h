// The icons that choose the mouse mode.
#pragma once

#include <optional>

#include "instance/gesture.h"
#include "instance/upperdisplay_records.h"

namespace tq {

/// A picture of the resource folder for a mode. When its file is missing an error is posted, as soon as
/// somebody can listen, and there is no icon.
std::optional<Icona> TQ_Prseq_IconMenu_MakeIcona(Prseq& object, const char* image, MouseMode mode);
/// Gives the instance its icons.
void TQ_Prseq_IconMenu_MakeMousemodeIconMenu(Prseq& object);
/// A press in the upper display: on a title it shows the menu, on an icon it chooses the icon's mode.
void click_upperdisplay(Prseq& object, const Pointer& press);

}  // namespace tq
