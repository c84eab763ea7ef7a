#include "view/modal_dialog.h"

#include <algorithm>
#include <utility>

#include "instance/geometry.h"
#include "instance/prseq.h"

namespace tq {

namespace {

constexpr double font_size = 14, margin = 20, gap = 14;  // pixels
constexpr Size button_padding{10, 4};                    // on both sides together

ModalButton TQ_Prseq_ModalDialog_ButtonCreate(const char* name) {
    const Size text = jtextlayout_measure(name, modal_dialog_font());
    return {gensym(name), {0, 0, text.width + button_padding.width, text.height + button_padding.height}};
}

std::vector<ModalButton> TQ_Prseq_ModalDialog_MakeButtons() {
    std::vector<ModalButton> buttons;
    for (const char* name : {dont_save_button, cancel_button, save_button})
        buttons.push_back(TQ_Prseq_ModalDialog_ButtonCreate(name));
    return buttons;
}

}  // namespace

JFont modal_dialog_font() { return jfont_create("Geneva", font_size); }

ModalDialog lay_out_modal_dialog(Size text, std::vector<ModalButton> buttons) {
    double row = -gap, highest = 0;
    for (const ModalButton& button : buttons) {
        row += gap + button.rect.width;
        highest = std::max(highest, button.rect.height);
    }
    const double width = std::max(row, text.width) + 2 * margin, top = text.height + 2 * margin;
    double x = (width - row) / 2;
    for (ModalButton& button : buttons) {
        button.rect.x = x;
        button.rect.y = top;
        x += button.rect.width + gap;
    }
    return {.size = {width, top + highest + margin},
            .text = {(width - text.width) / 2, margin, text.width, text.height},
            .buttons = std::move(buttons)};
}

ModalDialog TQ_Prseq_ModalDialog_Create(Symbol message, Symbol title) {
    ModalDialog dialog = lay_out_modal_dialog(jtextlayout_measure(message.text(), modal_dialog_font()),
                                              TQ_Prseq_ModalDialog_MakeButtons());
    dialog.message = message;
    dialog.title = title;
    return dialog;
}

Rect modal_dialog_place(const Prseq& object) {
    const Size size = object.modaldialog->size;
    return {(object.width - size.width) / 2, (object.height - size.height) / 2, size.width, size.height};
}

Rect in_modal_dialog(const Prseq& object, const Rect& rect) {
    const Rect dialog = modal_dialog_place(object);
    return {dialog.x + rect.x, dialog.y + rect.y, rect.width, rect.height};
}

const ModalButton* TQ_Prseq_ModalDialog_WhichButtonWasClicked(const Prseq& object, Point point) {
    for (const ModalButton& button : object.modaldialog->buttons)
        if (TQRectContainsPoint(in_modal_dialog(object, button.rect), point.x, point.y)) return &button;
    return nullptr;
}

}  // namespace tq
