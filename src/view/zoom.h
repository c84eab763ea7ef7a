// Zoom and scroll by unity values, and the length of the timeline.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Prseq;

// Each takes a unity value, held within 0 and 1. Nothing is reported.
void prseq_vertzoom(Prseq& object, double unity);
void prseq_horzoom(Prseq& object, double unity);
void prseq_vertscroll(Prseq& object, double unity);
void prseq_horscroll(Prseq& object, double unity);

/// The view as the scrollbars have it.
ZoomScroll TQ_Prseq_Zoom_GetZoomScrollObjectNow(const Prseq& object);
/// All four at once.
void TQ_Prseq_Zoom_ZoomToGivenZoomAndScroll(Prseq& object, const ZoomScroll& view);

/// Extends the timeline to whole seconds, at least 1.5 s beyond `ms`, when it is shorter than that; reports
/// its length in any case.
void prseq_resize_maxtime(Prseq& object, double ms);
/// What follows of a timeline that has grown: the view, its reports. Reports the length where it was asked
/// for.
void settle_timeline_length(Prseq& object);

}  // namespace tq
