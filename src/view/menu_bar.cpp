#include "view/menu_bar.h"

#include "instance/prseq.h"
#include "view/layout.h"

namespace tq {

namespace {

constexpr double title_margin = 12;  // pixels, on both sides together

}  // namespace

JFont menu_font(double fontsize) { return jfont_create("Geneva", fontsize); }

MenuBarLayout TQ_Prseq_Menu_CalculateMenuDisplaySize(double fontsize) {
    MenuBarLayout layout;
    double x = 0;
    for (size_t i = 0; i < menu_titles.size(); ++i) {
        const Size text = jtextlayout_measure(menu_titles[i], menu_font(fontsize));
        layout.titles[i] = {x, (upperdisplay_height - text.height) / 2, text.width + title_margin,
                            text.height};
        x += layout.titles[i].width;
    }
    layout.bar = {0, layout.titles[0].y, x, layout.titles[0].height};
    return layout;
}

Rect TQ_Prseq_Menu_GetRect(const Prseq& object) {
    Rect bar = TQ_Prseq_Menu_CalculateMenuDisplaySize(object.menufontsize).bar;
    if (!object.menudisplay) bar.width = 0;
    return bar;
}

}  // namespace tq
