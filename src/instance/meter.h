// The meter: time signatures from a bar on, and the bars and beats that follow from them.
#pragma once

#include <vector>

namespace tq {

struct BarRegion {
    long measure = 0;  ///< index, from 0, of the first bar with this signature
    long beats = 4;
    long notevalue = 4;
};

/// One bar. A beat lasts (end - start) / beats.
struct Measure {
    long index = 0;
    double start = 0, end = 0;  ///< ms
    long beats = 4;
    long notevalue = 4;
};

/// Bars of one signature that follow each other. Bars are computed from the spans when asked for, so that a
/// timeline of any length costs the same.
struct MeasureSpan {
    long firstmeasure = 0, count = 0;
    double start = 0;   ///< ms
    double length = 0;  ///< of a bar, ms
    long beats = 4, notevalue = 4;
};

struct Meter {
    std::vector<BarRegion> barregions;  ///< ascending by measure
    std::vector<MeasureSpan> spans;     ///< in time order, without gaps
    long firstbarnumber = 1;            ///< shown for the bar of index 0
    bool followstempo = false;          ///< else a whole note lasts 4 s
    double wholenote = 4000;            ///< ms
};

}  // namespace tq
