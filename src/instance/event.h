// An event: one note-like object of a track.
#pragma once

#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "host/symbol.h"
#include "instance/bpf.h"
#include "instance/buffer_link.h"
#include "instance/counted.h"
#include "instance/parameter.h"

namespace tq {

struct Track;

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
    std::unique_ptr<LinkedBuffer> linked;         ///< few events have one; none: as a BufferLink() would be
    boost::container::small_vector<BpfRef, 1> bpfs;
    BpfRef activebpf;        ///< one of bpfs, or none
    Track* track = nullptr;  ///< the track whose list the event is in, or none
    /// While the event is in a track, only the track's list changes this: it keeps the selected ones.
    bool selected = false;
    std::uint32_t selectedplace = 0;  ///< where the list keeps it among the selected ones

    double end() const { return start + duration; }
    /// The link's values, also when there is no link.
    const BufferLink& link() const {
        static const BufferLink none;
        return linked ? linked->values() : none;
    }
    /// The bound buffer, or none at the moment.
    Buffer* buffer() const { return linked ? linked->buffer() : nullptr; }
    /// What may be written of the link as it is; set_buffer_link() writes the name too.
    BufferRange& make_link() {
        if (!linked) linked = std::make_unique<LinkedBuffer>(*this);
        return linked->range();
    }
};
using EventRef = Ref<Event>;

/// A curve and the event that it is of.
struct CurveOf {
    EventRef event;
    BpfRef bpf;
};

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
