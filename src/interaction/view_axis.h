// Scrolling and zooming with the mouse, which goes the same way in both directions.
#pragma once

#include "instance/change.h"
#include "instance/view_records.h"

namespace tq {

struct ViewAxis {
    Part part;  ///< of its scrollbar
    TQScrollbar Geometry::*bar;
    double Prseq::*zoom;
    double Prseq::*scroll;
    double (*step)(const Prseq&);  ///< pixels that an arrow, or a unit of the wheel, scrolls by
    void (*report_zoom)(Prseq&);
    void (*report_scroll)(Prseq&);
    Change change;
};
extern const ViewAxis horizontal_axis, vertical_axis;

/// Scrolls by pixels of the page, as far as there is something to scroll to, and reports it.
void scroll_axis(Prseq& object, const ViewAxis& axis, double pixels);
/// The scrollbar has scrolled, or zoomed: the view follows, and it is reported.
void axis_scrolled(Prseq& object, const ViewAxis& axis);
void axis_zoomed(Prseq& object, const ViewAxis& axis);

}  // namespace tq
