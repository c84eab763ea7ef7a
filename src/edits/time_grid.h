// The times that events are drawn to.
#pragma once

#include <optional>

#include "instance/meter.h"

namespace tq {

struct Prseq;

/// Whether the ruler tells bars and beats, and beats are to be divided.
bool divides_beats(const Prseq& object);

/// How far lines are from each other. Without either: as those of the ruler, beats (or the parts that they
/// are divided into) or tenths of its main divisions.
struct GridStep {
    std::optional<double> ms = {};    ///< from 0 on
    std::optional<double> note = {};  ///< of a whole note, from the begin of each bar on
};

/// Lines that are equally far from each other, or the beats of the bars, or parts of them. Every second line
/// comes later by `swing`, 0 to 1, of half of the distance. They are where kept_time() says.
class TimeGrid {
 public:
    TimeGrid(const Prseq& object, const GridStep& step, double swing);

    /// The nearest line, of two the later one. Where no bar is, and 30 years from now, the
    /// time stays as it is.
    double nearest(double ms) const;
    /// The first line behind the one that the time lies on, or behind the time; the same where no bar is.
    double behind(double ms) const;
    /// How far lines are from each other there, in ms; 0 where no bar is.
    double spacing(double ms) const;

 private:
    /// Lines from `start` on, `length` from each other. Where the bar, of `count` lengths, ends is the last,
    /// which is the first of the next one, and never late.
    struct Lines {
        double start, length, count;
    };
    std::optional<Lines> lines_at(double ms) const;
    double line(const Lines& lines, double index) const;

    const Prseq& object_;
    const Meter* meter_;  ///< none: equally far
    std::optional<double> note_;
    double distance_, swing_, division_;
};

/// The play position, where what is edited there begins or ends: on the line of the grid that it means, which
/// a position that came as a message only has in single precision. Rounded to whole ms where bars do not
/// follow the tempo.
double edited_position(const Prseq& object);
/// The same, where what is new there begins: whole ms are those before it.
double position_to_insert(const Prseq& object);

}  // namespace tq
