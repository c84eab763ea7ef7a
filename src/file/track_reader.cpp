#include "file/track_reader.h"

#include "instance/prseq.h"
#include "instance/symbols.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/tracks.h"

namespace tq {

namespace {

Symbol symbol_of(const Dictionary& dictionary, std::string_view key) {
    auto text = dictionary.getstring(key);
    return text && !text->empty() ? gensym(*text) : Symbol();
}

void read_flags(Prseq& object, long index, const Dictionary& dictionary) {
    struct Row {
        const char* key;
        void (*set)(Prseq&, long, bool);
    };
    static const Row rows[] = {
        {"mute", TQ_Prseq_Tracks_SetMute},
        {"solo", TQ_Prseq_Tracks_SetSolo},
        {"visible", TQ_Prseq_Tracks_SetVisible},
        {"discard_note_output", TQ_Prseq_Tracks_SetDiscardNoteOutput},
        {"discard_default_pitch_bpf_output", TQ_Prseq_Tracks_SetDiscardDefaultPitchBpfOutput},
    };
    for (const Row& row : rows)
        if (auto value = dictionary.getlong(row.key)) row.set(object, index, *value != 0);
    if (auto hue = dictionary.getfloat("color"))
        TQ_Prseq_Tracks_SetColorFromHSL(object, index, *hue, object.defaults.saturation,
                                        object.defaults.luminosity);
    if (dictionary.getstring("destination"))
        TQ_Prseq_Tracks_SetDestination(object, index, symbol_of(dictionary, "destination"));
}

void read_types(Prseq& object, Track& track, const Dictionary& dictionary) {
    dictionary.getarray("bpftypes").for_each([&](const Dictionary& type) {
        TQ_Prseq_Tracks_AddBpfTypeToTrack(
            object, track.index, symbol_of(type, "name"), type.getfloat("minvalue").value_or(0),
            type.getfloat("maxvalue").value_or(0), type.getfloat("defaultvalue").value_or(0));
    });
    dictionary.getarray("paramtypes").for_each([&](const Dictionary& type) {
        ParameterType* added = TQ_Prseq_Parameters_AddParameterTypeToTrack(
            track, symbol_of(type, "Name"), type.getfloat("Minimum").value_or(0),
            type.getfloat("Maximum").value_or(0), type.getfloat("Default").value_or(0),
            type.getlong("Steps").value_or(0));
        if (added) added->id = type.getlong("ID");
    });
}

/// The points in order of x, completed by an end at 0 or 1 that is missing; points outside 0 to 1 are left
/// out.
BpfPoints read_points(const DictionaryArray& list) {
    BpfPoints points;
    list.for_each([&](const Dictionary& point) {
        std::optional<double> x = point.getfloat("x");
        if (x && *x >= 0 && *x <= 1) points.push_back({*x, point.getfloat("y").value_or(0)});
    });
    sort_bpf_points(points);
    if (points.empty() || points.front().x != 0) points.insert(points.begin(), {0, 0});
    if (points.back().x != 1) points.push_back({1, 0});
    return points;
}

void read_curve(const Track& track, Event& event, const Dictionary& curve) {
    Symbol name = symbol_of(curve, "name");
    BpfType* type = TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, name);
    if (!type || !curve.has("points")) return;
    Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, name);
    if (!bpf) {
        event.bpfs.push_back(TQ_Prseq_Events_MakeBpfFromBpfType(*type));
        bpf = event.bpfs.back().get();
    }
    bpf->points = read_points(curve.getarray("points"));
}

void read_buffer(Prseq& object, Event& event, const Dictionary& dictionary) {
    Symbol name = symbol_of(dictionary, "buffer");
    TQ_Prseq_Buffer_AttachBufferToEvent(object, event, name);
    double start = dictionary.getfloat("bufferstart").value_or(0);
    double end = dictionary.getfloat("bufferend").value_or(event.link().length);
    bool adapt = dictionary.getlong("bufferadapt").value_or(0) != 0;
    if (name.empty() && start == 0 && end == 0 && !adapt) return;  // most events have no link to store
    BufferLink link = event.link();
    link.name = name;  // also while no such buffer exists: it may come
    link.start = start;
    link.end = end;
    link.adapt = adapt;
    link.awaits = !event.buffer() && end > start;
    set_buffer_link(object, event, link);
    TQ_Prseq_Buffer_CalculateBufferRatio(event);
}

void read_event(Prseq& object, Track& track, const Dictionary& dictionary) {
    EventRef event = TQ_Prseq_Events_MakeEvent(
        object, dictionary.getlong("start").value_or(0), dictionary.getfloat("pitch").value_or(0),
        dictionary.getfloat("velocity").value_or(0), dictionary.getlong("duration").value_or(0),
        symbol_of(dictionary, "label"), symbol_of(dictionary, "message"));
    event->start = exact_time(dictionary, "exactstart", event->start);
    event->duration = exact_time(dictionary, "exactduration", event->duration);
    event->bpfs.push_back(TQ_Prseq_Events_MakeBpfFromBpfType(*track.bpftypes.front()));
    if (dictionary.has("buffer")) read_buffer(object, *event, dictionary);
    TQ_Prseq_Parameters_AddExistingParameterTypesToEvent(track, *event);
    dictionary.getarray("parameters").for_each([&](const Dictionary& parameter) {
        if (auto value = parameter.getfloat("value"))
            TQ_Prseq_Parameters_SetEventParameterValue(*event, symbol_of(parameter, "name"), *value);
    });
    dictionary.getarray("bpfs").for_each([&](const Dictionary& curve) { read_curve(track, *event, curve); });
    conform_event_to(track, *event);
    TQ_Prseq_Tracks_InsertEvent(object, track, std::move(event));
}

}  // namespace

double exact_time(const Dictionary& dictionary, const char* key, double whole) {
    const double exact = dictionary.getfloat(key).value_or(whole);
    return exact > whole && exact < whole + 1 ? exact : whole;
}

void read_track(Prseq& object, const Dictionary& dictionary) {
    if (auto name = dictionary.getstring("name")) {
        TrackRef made = TQ_Prseq_Tracks_MakeTrack(object, gensym(*name), true, false, false);
        long index = TQ_Prseq_Tracks_AddTrack(object, made);
        TQ_Prseq_Tracks_AddBpfTypeToTrack(object, index, tq_sym_Pitch, 0, Prseq::keysperoctave * 11, 0);
        prseq_do_set_activetrack(object, index);
    }
    Track* track = TQ_Prseq_Tracks_GetActiveTrack(object);
    if (!track) return;
    read_flags(object, track->index, dictionary);
    read_types(object, *track, dictionary);
    dictionary.getarray("events").for_each(
        [&](const Dictionary& event) { read_event(object, *track, event); });
}

}  // namespace tq
