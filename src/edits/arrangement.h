// Undoable edits of the time within the loop, on all tracks: what a song is arranged by. An event belongs to
// where it starts; bars stay as they are. An empty loop changes nothing.
#pragma once

namespace tq {

struct Prseq;

/// Puts what is in the loop behind it once more; what came there comes later.
void repeat_loop(Prseq& object);
/// Time as long as the loop, in which nothing is, comes before what is in it.
void insert_loop(Prseq& object);
/// Takes out what is in the loop, and its time.
void delete_loop(Prseq& object);
/// What is in the loop comes behind the time that follows it, as long as the loop, and what is there comes
/// first.
void swap_loop(Prseq& object);

}  // namespace tq
