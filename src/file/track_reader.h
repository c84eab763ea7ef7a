// Tracks and events from dictionaries.
#pragma once

#include "host/dictionary.h"

namespace tq {

struct Prseq;

/// Makes a track of a dictionary and makes it active. A dictionary without a name makes none: what it says,
/// and its events, go to the active track.
void read_track(Prseq& object, const Dictionary& dictionary);

/// What a whole ms stands for, where a key beside it tells that.
double exact_time(const Dictionary& dictionary, const char* key, double whole);

}  // namespace tq
