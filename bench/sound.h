// How near the sound of an imported MIDI file is to how the synthesiser's own player plays the file.
#pragma once

namespace bench {

/// One row a file of those that the machine has, then all together. CPU heavy: each file is rendered twice.
void sound_rows();

}  // namespace bench
