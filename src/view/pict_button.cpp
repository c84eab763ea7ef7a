#include "view/pict_button.h"

#include "view/pictures.h"

namespace tq {

PictButton TQ_Prseq_Graphics_CreatePictButton(Symbol image0, Symbol image1, Symbol image2, Symbol image3) {
    PictButton button;
    const Symbol names[] = {image0, image1, image2, image3};
    for (size_t i = 0; i < button.images.size(); ++i)
        if (!names[i].empty()) button.images[i] = bundled_picture(names[i]);
    return button;
}

void TQ_Prseq_Graphics_DrawPictButton(Graphics& g, const PictButton& button, const Rect& rect, bool state,
                                      bool enabled) {
    const SurfaceRef& picture = button.images[(enabled ? 0u : 2u) + (state ? 1u : 0u)];
    if (!picture) return;
    const Size size = picture->size();
    draw_picture(g, *picture,
                 {rect.x + (rect.width - size.width) / 2, rect.y + (rect.height - size.height) / 2});
}

}  // namespace tq
