// Undoable edits of a whole song, or of a whole track. Those of one kind that follow each other are one step
// of the history, computed from what was there before the first of them, so that dragging a value loses
// nothing.
#pragma once

#include <string>

#include "instance/track.h"

namespace tq {

struct DocumentInfo;
struct Prseq;

/// A person changes the tempo, to 1 to 10000 beats a minute: where the document's bars follow the tempo and
/// the attribute "events_follow_tempo" is on, as change_song_tempo() does; else nothing but the tempo
/// changes, and nothing is recorded. False, and nothing happens, where it would not fit.
bool change_tempo(Prseq& object, double bpm);
/// All events of all tracks, and the loop, keep their places in bars of the tempo: their times
/// (see kept_time()) become as many times as long as the beat does. False, and nothing happens, when that
/// would lead beyond what a timeline can hold.
bool change_song_tempo(Prseq& object, double bpm);

/// What the first event's curve of a type begins with, or else new ones: a value of the type's range.
double curve_level(const Track& track, const BpfType& type);
/// Every curve of that name on the track gets higher by as much as brings curve_level() to `level`, within
/// the type's range, and new ones have that level. A track that has no such type gets one, 0 to 127 and level
/// there.
void change_curve_level(Prseq& object, const TrackRef& track, Symbol name, double level);

/// The time signature from a bar on, counted from 1, as prseq_bar() sets it; it is no part of the history.
void change_time_signature(Prseq& object, long bar, long beats, long notevalue);

/// A text of the document's header; it is no part of the history.
void change_document_text(Prseq& object, std::string DocumentInfo::*text, std::string changed);

}  // namespace tq
