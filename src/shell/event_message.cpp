#include "shell/event_message.h"

#include <fmt/printf.h>

#include <algorithm>

#include "edits/track_edits.h"
#include "history/capture.h"
#include "history/edit.h"
#include "history/event_state.h"
#include "instance/prseq.h"
#include "instance/symbols.h"
#include "instance/utilities.h"
#include "model/bpfs.h"
#include "model/buffers.h"
#include "model/events.h"
#include "model/parameters.h"
#include "model/timeline.h"
#include "model/tracks.h"
#include "shell/event_keywords.h"
#include "view/maindisplay.h"

namespace tq {

namespace {

/// One message under way: what it says, and where its errors go.
struct EventMessage {
    Prseq& object;
    Symbol name;
    EventKeywords keywords;

    void error(const char* format, const std::string& word) const {
        object_error(object, fmt::sprintf(format, word, name.text()));
    }
};

/// The track that the message names or leaves to the active one; made when the document lacks it.
Track& track_for(Prseq& object, std::optional<long> wanted) {
    if (!wanted) {
        if (object.tracks.empty()) prseq_addtrack(object, {tq_sym_Untitled});
        return *TQ_Prseq_Tracks_GetActiveTrack(object);
    }
    long index = std::max(*wanted, 0L), count = static_cast<long>(object.tracks.size());
    if (index < count) return *track_at(object, index);
    Symbol name = count == 0 ? tq_sym_Untitled : gensym(fmt::sprintf("Track %ld", index));
    prseq_addtrack(object, {name});
    object_error(object, fmt::sprintf("no track %ld, creating new one", index));
    return *object.tracks.back();
}

struct Note {
    double pitch, velocity;
};

/// The note component over what the event has, or a new event takes, without it.
Note parse_note(const EventMessage& message, Note note) {
    AtomSpan atoms = message.keywords.note.atoms;
    if (atoms.size() > 2) {
        message.error("bad number of arguments for \"%s\" component in message %s", "<note>");
        return note;
    }
    double* const values[] = {&note.pitch, &note.velocity};
    for (size_t i = 0; i < atoms.size(); ++i) {
        if (atoms[i].is_number())
            *values[i] = atoms[i].as_double();
        else
            message.error("bad arg type after arg \"%s\" in message %s", "<note>");
    }
    return note;
}

/// A name and a flag; none when there is nothing to do or the component is faulty (which is posted).
struct BufferWish {
    Symbol name;
    bool adapt = false;
};

std::optional<BufferWish> parse_buffer(const EventMessage& message) {
    const auto& component = message.keywords.buffer;
    if (!component.given) return {};
    AtomSpan atoms = component.atoms;
    if (atoms.size() > 2) {
        message.error("bad number of arguments for \"%s\" component in message %s", "<buffer>");
        return {};
    }
    BufferWish wish;
    if (!atoms.empty() && !atoms[0].is_symbol()) {
        message.error("bad arg type after arg \"%s\" in message %s", "<buffer>");
        return {};
    }
    if (!atoms.empty()) wish.name = atoms[0].as_symbol();
    if (atoms.size() == 2 && atoms[1].is_int())
        wish.adapt = atoms[1].as_long() != 0;
    else if (atoms.size() == 2)
        message.error("bad arg type after arg \"%s\" in message %s", "<buffer>");
    return wish;
}

void link_buffer(Prseq& object, Event& event, const BufferWish& wish) {
    TQ_Prseq_Buffer_AttachBufferToEvent(object, event, wish.name);
    if (event.linked || wish.adapt) event.make_link().adapt = wish.adapt;
    TQ_Prseq_Buffer_CalculateBufferRatio(event);
}

double pitch_in_the_middle(const Prseq& object) {
    return TQ_Prseq_Maindisplay_CalculatePitchFromMouse(object.maindisplay,
                                                        object.keydisplay.rect.height / 2);
}

/// Where bars follow the tempo, what is told to lie between whole ms does.
void keep_exact_times(Event& event, const EventKeywords& keywords) {
    event.start = keywords.start.value_or(event.start);
    event.duration = keywords.duration.value_or(event.duration);
}

void insert_new_event(const EventMessage& message, Track& track) {
    Prseq& object = message.object;
    const EventKeywords& keywords = message.keywords;
    expect_insertion(object);
    double position = itm_tickstoms(*object.transport, itm_getticks(*object.transport));
    bool pitch_given = !keywords.note.atoms.empty();
    Note note = parse_note(message, {pitch_given ? 0 : pitch_in_the_middle(object), 0});
    Symbol text = keywords.message.atoms.empty() ? Symbol() : gensym(atom_gettext(keywords.message.atoms));
    EventRef event = TQ_Prseq_Events_MakeEvent(
        object, whole_ms(keywords.start.value_or(position)), note.pitch, note.velocity,
        whole_ms(keywords.duration.value_or(object.defaults.eventduration)),
        keywords.label.value_or(Symbol()), text);
    if (object.meter.followstempo) keep_exact_times(*event, keywords);
    if (auto wish = parse_buffer(message)) link_buffer(object, *event, *wish);
    TQ_Prseq_Events_AddBpfsFromExistingBpfTypesOnExistingTrack(track, *event);
    if (keywords.bpf.has_name())
        TQ_Prseq_Events_SetBpfPointsFromAtomArray(object, *event, keywords.bpf.atoms);
    TQ_Prseq_Parameters_AddExistingParameterTypesToEvent(track, *event);
    if (keywords.parameter.has_name()) {
        AtomSpan pairs = keywords.parameter.atoms;
        for (size_t i = 0; i + 1 < pairs.size(); i += 2)
            if (pairs[i].is_symbol() && pairs[i + 1].is_number())
                TQ_Prseq_Parameters_SetEventParameterValue(*event, pairs[i].as_symbol(),
                                                           pairs[i + 1].as_double());
    }
    TQ_Prseq_Tracks_InsertEvent(object, track, event);
    capture_inserted_event(object, std::move(event));
}

/// Reads "<parameter>" for an event that exists: clipped values, or the type's default for what is no number.
void modify_parameters(const EventMessage& message, const Track& track, Event& event, EventDictionary& next) {
    AtomSpan atoms = message.keywords.parameter.atoms;
    for (size_t i = 0; i < atoms.size(); i += 2) {
        if (!atoms[i].is_symbol()) {
            message.error("bad arg type after arg \"%s\" in message %s", "<parameter>");
            return;
        }
        Symbol name = atoms[i].as_symbol();
        const ParameterType* type = TQ_Prseq_Parameters_GetDictionaryFromName(track, name);
        if (!type || i + 1 >= atoms.size() || !TQ_Prseq_Parameters_GetEventParameterFromName(event, name))
            continue;
        double value = type->default_;
        if (atoms[i + 1].is_number())
            value = std::max(type->minimum, std::min(type->maximum, atoms[i + 1].as_double()));
        else
            object_error(message.object,
                         fmt::sprintf("bad arg type after arg %s in message %s, using default value (%f)",
                                      name.text(), message.name.text(), value));
        next.parameters.emplace_back(name, value);
    }
}

/// The points of one curve of an event that exists, from the numbers after its name.
BpfPoints modified_points(const Event& event, const Bpf& bpf, AtomSpan numbers) {
    BpfPoints points;
    for (size_t i = 0; i + 1 < numbers.size(); i += 2) {
        double time = numbers[i].as_double();
        double x = event.duration > 0 ? std::clamp(time / event.duration, 0.0, 1.0) : 0;
        points.push_back({x, bpf_unity_value(bpf, numbers[i + 1].as_double())});
    }
    return points;
}

void modify_bpfs(const EventMessage& message, const Event& event, EventDictionary& next) {
    AtomSpan atoms = message.keywords.bpf.atoms;
    auto is_name = [](const Atom& atom) { return atom.is_symbol(); };
    for (auto name = std::find_if(atoms.begin(), atoms.end(), is_name); name != atoms.end();) {
        auto following = std::find_if(name + 1, atoms.end(), is_name);
        Symbol symbol = name->as_symbol();
        if (const Bpf* bpf = TQ_Prseq_Events_GetBpfWithGivenName(event, symbol))
            next.bpfs.push_back({symbol, modified_points(event, *bpf, AtomSpan(name + 1, following))});
        else
            object_error(message.object,
                         fmt::sprintf("Event with id %ld has no Bpf Type named %s", event.id, symbol.text()));
        name = following;
    }
}

void modify_event(const EventMessage& message, Track& track, Event& event) {
    Prseq& object = message.object;
    const EventKeywords& keywords = message.keywords;
    expect_modification(object);
    EventModification modification{&event, event_state(event), {}};
    Note note = parse_note(message, {event.pitch, event.velocity});
    EventDictionary next;
    next.start = keywords.start;
    next.duration = keywords.duration;
    next.pitch = note.pitch;
    next.velocity = note.velocity;
    next.label = keywords.label;
    if (!keywords.message.atoms.empty()) next.message = gensym(atom_gettext(keywords.message.atoms));
    next.track = &track;
    TQ_Prseq_Events_ModifyEventFromDictionary(object, event, next);
    if (auto wish = parse_buffer(message)) link_buffer(object, event, *wish);

    EventDictionary lists;
    if (keywords.parameter.has_name()) modify_parameters(message, track, event, lists);
    if (keywords.bpf.has_name()) modify_bpfs(message, event, lists);
    TQ_Prseq_Events_ModifyEventFromDictionary(object, event, lists);
    cover_event(object, event);
    modification.next = event_state(event);
    capture_modified_event(object, std::move(modification));
}

void do_event(const EventMessage& message) {
    Prseq& object = message.object;
    const EventKeywords& keywords = message.keywords;
    Event* event = nullptr;
    if (keywords.id) {
        event = TQ_Prseq_Events_FindEventFromID(object, *keywords.id);
        if (!event) {
            object_error(object, fmt::sprintf("no event with id %ld ", *keywords.id));
            return;
        }
    }
    // An event that is changed stays on its track unless the message names another.
    Track& track = event && !keywords.track ? *event->track : track_for(object, keywords.track);
    if (event)
        modify_event(message, track, *event);
    else
        insert_new_event(message, track);
}

}  // namespace

void prseq_event(Prseq& object, Symbol message, AtomSpan atoms) {
    if (atoms.empty()) return open_event_capture(object);
    Edit edit(object, Edit::InBurst{});
    open_event_capture(object);
    do_event({object, message, parse_event_keywords(atoms)});
}

}  // namespace tq
