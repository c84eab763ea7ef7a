// The bars of a song on the document's grid, where all quarter notes last as long as those of one tempo.
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
/// one: 4/4 at twice the first tempo is 4/8. From the first bar on that has none, the song's time signatures
/// stand as they are.
/// `whole_note`: of the grid, in ms.
ImportedMeter meter_of(const MidiSong& song, double whole_note);

}  // namespace tq
