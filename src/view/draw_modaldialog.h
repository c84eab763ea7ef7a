// The question that is asked inside the box: the box is dimmed, and the question stands in its middle.
#pragma once

namespace tq {

class Graphics;
struct Prseq;

void draw_modaldialog(const Prseq& object, Graphics& g);

}  // namespace tq
