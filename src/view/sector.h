// Between a view's unity values and the stretch of the document that it shows.
#pragma once

#include "instance/view_records.h"

namespace tq {

struct Prseq;

Sector TQ_Prseq_Zoom_CalculateSectorForGivenZoomAndScroll(const Prseq& object, const ZoomScroll& view);
/// The zooms are held within 0 and 1, the scrolls are not.
ZoomScroll TQ_Prseq_Zoom_CalculateZoomAndScrollValuesForGivenSector(const Prseq& object,
                                                                    const Sector& sector);
/// start and end in ms; the rows of both pitches are in the sector.
Sector TQ_Prseq_Zoom_MakeSector(double start, double end, double toppitch, double bottompitch);
/// The sector on the way from one to another, at 0 to 1.
Sector sector_between(const Sector& from, const Sector& to, double position);

}  // namespace tq
