// What the box tells the patch of its view.
#pragma once

namespace tq {

struct Prseq;

void TQ_Prseq_Output_ScrollHor(Prseq& object);
void TQ_Prseq_Output_ScrollVert(Prseq& object);
void TQ_Prseq_Output_ZoomHor(Prseq& object);
void TQ_Prseq_Output_ZoomVert(Prseq& object);
/// All four.
void TQ_Prseq_Output_ZoomScrollNow(Prseq& object);
/// Where the window is that the box stands in.
void TQ_Prseq_Output_PatcherwindowRect(Prseq& object);
/// The timeline's length.
void TQ_Prseq_Output_Maxtime(Prseq& object);

}  // namespace tq
