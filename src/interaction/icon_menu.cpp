#include "interaction/icon_menu.h"

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "interaction/menus.h"
#include "interaction/mouse_modes.h"
#include "interaction/resource_pictures.h"
#include "view/icon_menu.h"
#include "view/menu_bar.h"

namespace tq {

namespace {

using enum MouseMode;
constexpr MouseMode order[] = {Select, Insert, Slice, Glue, Zoom, EditBpf, SelectBpf, Buffer};

}  // namespace

std::optional<Icona> TQ_Prseq_IconMenu_MakeIcona(Prseq& object, const char* image, MouseMode mode) {
    SurfaceRef picture = picture_or_error(object, image);
    return picture ? std::optional(Icona{std::move(picture), mode}) : std::nullopt;
}

void TQ_Prseq_IconMenu_MakeMousemodeIconMenu(Prseq& object) {
    IconMenu& menu = object.iconmenu;
    menu.normal = picture_or_error(object, "iconmenu_cursor_normal.png");
    menu.selected = picture_or_error(object, "iconmenu_cursor_selected.png");
    for (MouseMode mode : order)
        if (auto icon = TQ_Prseq_IconMenu_MakeIcona(object, mouse_mode_row(mode).icon, mode))
            menu.icons.push_back(std::move(*icon));
}

void click_upperdisplay(Prseq& object, const Pointer& press) {
    const MenuBarLayout menus = TQ_Prseq_Menu_CalculateMenuDisplaySize(object.menufontsize);
    for (size_t title = 0; object.menudisplay && title < menus.titles.size(); ++title)
        if (TQRectContainsPoint(menus.titles[title], press.at.x, press.at.y))
            return TQ_Prseq_Menu_Show(object, title);
    const Rect& display = object.layout[Part::UpperDisplay];
    const auto mode = icon_mode_at(object, {press.at.x - display.x, press.at.y - display.y});
    if (mode) prseq_mousemode(object, gensym(mouse_mode_row(*mode).name));
}

}  // namespace tq
