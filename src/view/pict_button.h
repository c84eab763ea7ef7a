// A button that is a picture for each of its states.
#pragma once

#include <array>

#include "host/image.h"
#include "host/symbol.h"

namespace tq {

/// Pictures for off and on, then for off and on while disabled; none: nothing is drawn for that state.
struct PictButton {
    std::array<SurfaceRef, 4> images;
};

/// Of files of the resource folder; the empty symbol leaves a picture out.
PictButton TQ_Prseq_Graphics_CreatePictButton(Symbol image0, Symbol image1, Symbol image2, Symbol image3);
/// The picture at its own size, centred in the rectangle.
void TQ_Prseq_Graphics_DrawPictButton(Graphics& g, const PictButton& button, const Rect& rect, bool state,
                                      bool enabled);

}  // namespace tq
