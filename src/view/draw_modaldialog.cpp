#include "view/draw_modaldialog.h"

#include "host/graphics.h"
#include "instance/prseq.h"
#include "view/gradient.h"
#include "view/modal_dialog.h"

namespace tq {

namespace {

constexpr double button_grey = 0.9, lighter = 1.5, darker = 0.5;
constexpr Point text_light{1, 2};  // how far the light copy of a name stands off

/// The light falls from the top left.
void draw_bevel(Graphics& g, const Rect& r) {
    const double left = r.x + 0.5, top = r.y + 0.5, right = r.x + r.width - 0.5,
                 bottom = r.y + r.height - 0.5;
    jgraphics_set_source_jrgba(g, grey(button_grey * lighter));
    jgraphics_line_draw_fast(g, {left, r.y + r.height}, {left, r.y}, 1);
    jgraphics_line_draw_fast(g, {r.x, top}, {r.x + r.width, top}, 1);
    jgraphics_set_source_jrgba(g, grey(button_grey * darker));
    jgraphics_line_draw_fast(g, {r.x, bottom}, {r.x + r.width, bottom}, 1);
    jgraphics_line_draw_fast(g, {right, r.y + r.height}, {right, r.y}, 1);
}

void draw_text(Graphics& g, Symbol text, const Rect& box, const Rgba& color) {
    jtextlayout_draw(g, {.text = text.text(),
                         .font = modal_dialog_font(),
                         .box = box,
                         .horizontal = HorizontalJustification::Centered,
                         .vertical = VerticalJustification::Centered,
                         .color = color});
}

void draw_button(Graphics& g, Symbol name, const Rect& rect) {
    jgraphics_set_source_jrgba(g, grey(button_grey));
    jgraphics_rectangle_fill_fast(g, rect);
    draw_bevel(g, rect);
    draw_text(g, name, {rect.x + text_light.x, rect.y + text_light.y, rect.width, rect.height}, grey(1));
    draw_text(g, name, rect, grey(0));
}

}  // namespace

void draw_modaldialog(const Prseq& object, Graphics& g) {
    const ModalDialog& dialog = *object.modaldialog;
    const Rect place = modal_dialog_place(object);
    jgraphics_set_source_jrgba(g, grey(0, 0.5));
    jgraphics_rectangle_fill_fast(g, {0, 0, object.width, object.height});
    jgraphics_set_source_jrgba(g, grey(0.9, 0.8));
    jgraphics_rectangle_fill_fast(g, place);
    jgraphics_set_source_jrgba(g, grey(0.3));
    jgraphics_rectangle_draw_fast(g, place, 1);
    draw_text(g, dialog.message, in_modal_dialog(object, dialog.text), grey(0));
    for (const ModalButton& button : dialog.buttons)
        draw_button(g, button.name, in_modal_dialog(object, button.rect));
}

}  // namespace tq
