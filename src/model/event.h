// An event: one note-like object of a track.
#pragma once

#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "host/symbol.h"
#include "model/bpf.h"
#include "model/counted.h"
#include "model/parameter.h"

namespace tq {

class Object;
struct Track;

/// An event's link to an audio buffer. Few events have one, so it stands outside the event.
struct BufferLink {
    Object* buffer = nullptr;  ///< the bound buffer, or none at the moment
    Symbol name;               ///< empty: no link
    double length = 0;         ///< of the buffer's sound, ms
    bool adapt = false;        ///< the ratio relates the buffer's length to the event's duration
    double ratio = 0;
    double start = 0, end = 0;  ///< the played range, ms
};

struct Event : Counted<Event> {
    long id = 0;  ///< unique in the document, never used again
    /// In ms. While the event is in a track, TQ_Prseq_Events_SetEventStart and _SetEventDuration change
    /// them: the track keeps its events by them.
    double start = 0, duration = 0;
    double pitch = 0;     ///< MIDI note number, fractions allowed; 0 to 131 in the editor
    double velocity = 0;  ///< 0 to 127
    Symbol label;
    Symbol message;
    std::vector<ParameterValue> parametervalues;  ///< one for each type of the track, in its order
    std::unique_ptr<BufferLink> buffer;           ///< none: as a BufferLink() would be
    boost::container::small_vector<BpfRef, 1> bpfs;
    BpfRef activebpf;        ///< one of bpfs, or none
    Track* track = nullptr;  ///< the track whose list the event is in, or none
    /// While the event is in a track, only the track's list changes this: it keeps the selected ones.
    bool selected = false;
    bool selectedwhenclicked = false;  ///< whether it was selected when a marquee was begun
    std::uint32_t selectedplace = 0;   ///< where the list keeps it among the selected ones

    double end() const { return start + duration; }
    /// The link's values, also when there is no link.
    const BufferLink& link() const {
        static const BufferLink none;
        return buffer ? *buffer : none;
    }
    BufferLink& make_link() {
        if (!buffer) buffer = std::make_unique<BufferLink>();
        return *buffer;
    }
};
using EventRef = Ref<Event>;

/// Values of an event by key, as the history and "event" messages pass them; what is absent is left alone.
struct EventDictionary {
    std::optional<double> start, pitch, velocity, duration;
    Ref<Track> track;  ///< none: absent
    std::optional<Symbol> label, message, buffername;
    std::optional<bool> bufferadapt;
    std::optional<double> bufferstart, bufferend;
    std::vector<BpfDictionary> bpfs;
    std::vector<std::pair<Symbol, double>> parameters;
};

}  // namespace tq
