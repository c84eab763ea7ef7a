// Where the titles of the menu bar are.
#pragma once

#include <array>

#include "host/geometry.h"
#include "host/text.h"

namespace tq {

struct Prseq;

inline constexpr std::array menu_titles{"File", "Edit", "View", "Tracks", "Events", "Bpfs", "Options"};

struct MenuBarLayout {
    std::array<Rect, menu_titles.size()> titles;
    Rect bar;
};

JFont menu_font(double fontsize);
/// In the upper display, by what the titles measure.
MenuBarLayout TQ_Prseq_Menu_CalculateMenuDisplaySize(double fontsize);
/// All titles together; without width when the menu bar is not shown.
Rect TQ_Prseq_Menu_GetRect(const Prseq& object);

}  // namespace tq
