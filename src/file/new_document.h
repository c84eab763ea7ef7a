// Emptying the document.
#pragma once

namespace tq {

struct Prseq;

/// Empties the document; the view, the attributes and the untitled counter stay. It begins with the meter of
/// a new box; where its bars follow the tempo, it does not go on with the tempo and the loop of the one
/// before.
void TQ_Prseq_NewFile(Prseq& object);
/// The tempo of a new song, whose loop is its first four bars; its timeline covers them, which is left to the
/// caller to report.
void begin_song(Prseq& object, double bpm);

}  // namespace tq
