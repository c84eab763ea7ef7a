#include "view/icon_menu.h"

#include "instance/geometry.h"
#include "instance/prseq.h"
#include "view/menu_bar.h"
#include "view/pictures.h"

namespace tq {

namespace {

constexpr double icons_top = 4, gap = 1, hint_room = 30;  // pixels

double icons_left(const Prseq& object) {
    const Rect bar = TQ_Prseq_Menu_GetRect(object);
    const bool hints = object.focusdisplay || object.dirtydisplay;
    return bar.x + bar.width + (hints ? hint_room : 0);
}

}  // namespace

Rect icon_rect(const Prseq& object, size_t index) {
    const Size size = object.iconmenu.icons[index].image->size();
    return {icons_left(object) + (size.width + gap) * static_cast<double>(index), icons_top, size.width,
            size.height};
}

Rect TQ_Prseq_IconMenu_GetRect(const Prseq& object) {
    const double left = icons_left(object);
    if (object.iconmenu.icons.empty()) return {left, icons_top, 0, 0};
    const Rect last = icon_rect(object, object.iconmenu.icons.size() - 1);
    return {left, icons_top, last.x + last.width - left, last.height};
}

std::optional<MouseMode> icon_mode_at(const Prseq& object, Point point) {
    if (!TQRectContainsPoint(TQ_Prseq_IconMenu_GetRect(object), point.x, point.y)) return {};
    for (size_t i = 0; i < object.iconmenu.icons.size(); ++i)
        if (TQRectContainsPoint(icon_rect(object, i), point.x, point.y)) return object.iconmenu.icons[i].mode;
    return {};
}

void TQ_Prseq_IconMenu_DrawIconMenu(const Prseq& object, Graphics& g) {
    const IconMenu& menu = object.iconmenu;
    for (size_t i = 0; i < menu.icons.size(); ++i) {
        const Icona& icon = menu.icons[i];
        const Rect rect = icon_rect(object, i);
        const SurfaceRef& ground = icon.mode == object.maindisplay.mousemode ? menu.selected : menu.normal;
        if (ground) {
            const Size size = ground->size();
            jgraphics_image_surface_draw(g, *ground, {0, 0, size.width, size.height}, rect);
        }
        draw_picture(g, *icon.image, {rect.x, rect.y});
    }
}

}  // namespace tq
