#include "documents.h"

#include <malloc.h>

#include <algorithm>
#include <random>

#include "app/midi/writer.h"
#include "edits/track_edits.h"
#include "model/bpfs.h"
#include "model/events.h"
#include "model/tracks.h"

namespace bench {

using namespace tq;

std::unique_ptr<Session> document(size_t events, size_t tracks, double step) {
    auto session = std::make_unique<Session>();
    Prseq& box = session->box();
    for (size_t t = 0; t < tracks; ++t) {
        prseq_addtrack(box, {});
        Track& track = *TQ_Prseq_Tracks_GetActiveTrack(box);
        std::vector<EventRef> list;
        for (size_t i = t; i < events; i += tracks) {
            EventRef event =
                TQ_Prseq_Events_MakeEvent(box, static_cast<long>(static_cast<double>(i) * step),
                                          36 + static_cast<double>(i * 7 % 48), 100, 200, {}, {});
            TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(track, *event);
            list.push_back(std::move(event));
        }
        TQ_Prseq_Tracks_InsertAllEvents(box, track, std::move(list));
    }
    return session;
}

std::vector<long> event_starts(size_t count, bool shuffled) {
    std::vector<long> starts(count);
    for (size_t i = 0; i < count; ++i) starts[i] = static_cast<long>(i * 10);
    if (shuffled) std::shuffle(starts.begin(), starts.end(), std::mt19937(1));
    return starts;
}

Atoms event_message() {
    return {gensym("start"), 0L, gensym("duration"), 100L, gensym("<note>"), 60L, 100L, gensym("</note>")};
}

std::string midi_file(size_t notes, size_t tracks) {
    std::vector<MidiPart> parts(tracks);
    for (size_t t = 0; t < tracks; ++t) {
        parts[t].name = "Part " + std::to_string(t);
        parts[t].voice.program = static_cast<int>(t);
        for (size_t i = t; i < notes; i += tracks)
            parts[t].notes.push_back(
                {static_cast<double>(i) * 2, 30, 36 + static_cast<double>(i * 7 % 48), 100, {}});
    }
    std::vector<std::byte> bytes = write_midi_file(parts);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

size_t heap_bytes() {
    struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

}  // namespace bench
