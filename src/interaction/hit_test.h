// Which events are where: in pixels, horizontally of the display, vertically of the page.
#pragma once

#include <vector>

#include "host/geometry.h"
#include "instance/gesture.h"
#include "instance/track.h"

namespace tq {

struct Prseq;

/// A pointer in the space of these rectangles.
Point event_space(const Prseq& object, const Pointer& pointer);

/// The first event of a visible track, in its order, whose rectangle holds a point; edges belong to it. None
/// when there is none.
Event* TQ_Prseq_Tracks_GetClickedEventInTrack(const Prseq& object, const Track& track, double x, double y);
/// Its index, or −1.
long TQ_Prseq_Tracks_GetClickedEventIndexInTrack(const Prseq& object, const Track& track, double x, double y);
/// The event of the active track that a pointer is on.
EventRef event_under(const Prseq& object, const Pointer& pointer);
/// The same, or else the first one that ends at most `grip` pixels left of the pointer.
EventRef event_or_end_under(const Prseq& object, const Pointer& pointer, double grip);
/// The first event whose left edge a press grabs in the parameter display: up to 5 pixels right of it.
Event* TQ_Prseq_Tracks_GetClickedParameterEventInTrack(const Prseq& object, const Track& track, double x,
                                                       double y);
/// The same for a drag: less than 15 pixels right of it, at any height.
Event* TQ_Prseq_Tracks_GetDraggedParameterEventInTrack(const Prseq& object, const Track& track, double x,
                                                       double y);

/// What a person sees at an x of the parameter display: the events of the last bar that begins up to 5 pixels
/// left of it, several where these begin together. None on an invisible track.
std::vector<Event*> events_of_bar(const Prseq& object, const Track& track, double x);

/// The events of a track, in its order, whose rectangles touch `area`; touching edges count.
std::vector<Event*> events_touching(const Prseq& object, const Track& track, const Rect& area);

}  // namespace tq
