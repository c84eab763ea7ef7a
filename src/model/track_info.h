// What the track info outlet tells of the tracks.
#pragma once

#include "instance/track.h"

namespace tq {

struct Prseq;

/// Everything: clear, each track's pieces in order, done.
void TQ_Prseq_Tracks_OutputTrackInfo(Prseq& object);
void TQ_Prseq_Tracks_OutputTrackColor(Prseq& object, const Track& track);
void TQ_Prseq_Tracks_OutputTrackVisibility(Prseq& object, const Track& track);
void TQ_Prseq_Tracks_OutputTrackMuteState(Prseq& object, const Track& track);
/// Nothing for a track without parameter types.
void TQ_Prseq_Tracks_OutputParameterInfo(Prseq& object, const Track& track);
void TQ_Prseq_Tracks_OutputBpfInfo(Prseq& object, const Track& track);
void TQ_Prseq_Tracks_OutputDestination(Prseq& object, const Track& track);
/// Which track is active.
void TQ_Prseq_Tracks_OutputTrackActive(Prseq& object);
void TQ_Prseq_Tracks_OutputDone(Prseq& object);

}  // namespace tq
