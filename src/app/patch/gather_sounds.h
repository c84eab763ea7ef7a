// Bringing a document's sounds to where it will find them.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/patch/beside_document.h"

namespace tq {

class Buffer;
struct Prseq;

/// What became of the sounds: the names of the files that were copied, and what a person has to know.
struct GatheredSounds {
    std::vector<std::string> copied, told;
};

/// Copies the files of sounds that a document's events play, and that lie elsewhere, beside it, under the
/// names of their buffers. A file that lies there is never written over; a copy is complete or absent.
class SoundGatherer {
 public:
    /// For a document that has just been saved. What has been told of is told again only when a file has
    /// changed, or could not be copied again.
    GatheredSounds gather(const Prseq& box);

 private:
    struct Pair {
        SoundFile own, beside;
        friend bool operator==(const Pair&, const Pair&) = default;
    };
    void gather(const Prseq& box, const Buffer& buffer, GatheredSounds& gathered);
    void compare(const std::string& name, const Pair& pair, GatheredSounds& gathered);

    std::map<std::string, Pair> known_;  ///< what was compared, by the buffer's name
};

}  // namespace tq
