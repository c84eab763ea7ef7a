// The track list: where its rows, columns and scrollbar are, relative to its part of the box.
#pragma once

#include <array>

#include "instance/view_records.h"

namespace tq {

struct Prseq;

inline constexpr double track_row_height = 20, track_header_height = 16;

struct TrackColumn {
    const char* title;
    double x, width;
};
enum : long { TrackNameColumn = 0, TrackShowColumn = 1, TrackMuteColumn = 2 };
inline constexpr std::array track_columns{TrackColumn{"Track Name", 0, 100}, TrackColumn{"Show", 100, 24},
                                          TrackColumn{"Mute", 124, 24}};

/// It follows from the box's size, the number of tracks and how far the list is scrolled.
struct TrackDisplay {
    Rect header, scrollbarrect;
    double visibleheight = 0;  ///< of the rows, pixels
    double alltracksheight = 0;
    double scroll = 0;      ///< pixels of the list above what is visible
    TQScrollbar scrollbar;  ///< its rectangles are relative to `scrollbarrect`
};

TrackDisplay trackdisplay_of(const Prseq& object);
double TQ_Prseq_Trackdisplay_CalculateAllTracksHeight(const Prseq& object);
/// The name cell of a track's row.
Rect track_row(const TrackDisplay& display, long index);
/// The indices of the rows that are visible: from the first to before the last.
struct TrackRows {
    long first = 0, last = 0;
};
TrackRows visible_track_rows(const Prseq& object, const TrackDisplay& display);

/// The track whose row is under a point, or −1; nothing is under a row's top edge.
long TQ_Prseq_Trackdisplay_WhatTrack(const Prseq& object, double x, double y);
/// The index of the column under a point, or −1; nothing is under its edges.
long TQ_Prseq_Trackdisplay_WhatColumn(const Prseq& object, double x, double y);

}  // namespace tq
