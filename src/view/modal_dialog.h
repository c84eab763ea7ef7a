// Where everything is in the question that is asked inside the box.
#pragma once

#include <span>

#include "host/text.h"
#include "instance/modal_dialog_record.h"

namespace tq {

struct Prseq;

inline constexpr const char *dont_save_button = "Don't Save", *cancel_button = "Cancel",
                            *save_button = "Save";

JFont modal_dialog_font();
/// A question with the three buttons, laid out by what the texts measure.
ModalDialog TQ_Prseq_ModalDialog_Create(Symbol message, Symbol title);
/// The same of buttons whose sizes are given.
ModalDialog lay_out_modal_dialog(Size text, std::vector<ModalButton> buttons);
/// The open dialog in the middle of the box.
Rect modal_dialog_place(const Prseq& object);
/// Where something of the open dialog is in the box.
Rect in_modal_dialog(const Prseq& object, const Rect& rect);
/// The button of the open dialog at a point of the box, or none.
const ModalButton* TQ_Prseq_ModalDialog_WhichButtonWasClicked(const Prseq& object, Point point);

}  // namespace tq
