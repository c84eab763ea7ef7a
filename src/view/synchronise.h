// Keeps scrollbars, key display and main display in step.
#pragma once

namespace tq {

struct Prseq;

/// Makes both scrollbars and gives them the ranges of the box as it is laid out.
void init_scrollbars(Prseq& object);
/// The scrollbar takes the display's size and the timeline's length: its page sizes and its zoom range.
void synchronise_horscrollbar(Prseq& object);
void synchronise_vertscrollbar(Prseq& object);
/// The key display takes zoom and scroll from the vertical scrollbar.
void synchronise_keydisplay(Prseq& object);
/// The main display takes zoom and scroll from the key display and the horizontal scrollbar.
void synchronise_maindisplay(Prseq& object);
/// All of these, in order: done before every paint, and before anything is computed from a view that has
/// changed.
void synchronise_view(Prseq& object);

}  // namespace tq
