// The bars of a song on the document's grid, where a quarter note lasts 1000 ms whatever the tempo.
#pragma once

#include <string>
#include <vector>

#include "app/midi/song.h"
#include "instance/meter.h"

namespace tq {

/// Regions by measure, and in one line what of the song's bars they do not show; empty when they show all.
struct ImportedMeter {
    std::vector<BarRegion> regions;
    std::string off;
};

/// A bar of the song is shown as the bar of the grid that lasts as long, with the song's beats if there is
/// one: 4/4 at 120 beats a minute is 4/8. From the first bar on that has none, the song's time signatures
/// stand as they are.
ImportedMeter meter_of(const MidiSong& song);

}  // namespace tq
