// The mouse calls of the host, handed to the part under the pointer.
#pragma once

namespace tq {

struct Prseq;

// x and y are of the box, modifiers are bits of host/modifiers.h, the pressed button among them.

/// Begins what the part under the pointer does with a press; a gesture that was never released ends before.
void prseq_mousedown(Prseq& object, double x, double y, unsigned modifiers);
void prseq_mousedrag(Prseq& object, double x, double y, unsigned modifiers);
void prseq_mouseup(Prseq& object, double x, double y, unsigned modifiers);
void prseq_mousedoubleclick(Prseq& object, double x, double y, unsigned modifiers);
/// The pointer has moved without a button.
void prseq_mousemove(Prseq& object, double x, double y, unsigned modifiers);
void prseq_mouseleave(Prseq& object, double x, double y, unsigned modifiers);
/// Turns of the wheel in the host's units.
void prseq_mousewheel(Prseq& object, double x, double y, unsigned modifiers, double dx, double dy);
void prseq_focusgained(Prseq& object);
/// Ends the gesture that is under way, too.
void prseq_focuslost(Prseq& object);

}  // namespace tq
