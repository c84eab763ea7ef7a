#include "app/script/message_advice.h"

#include <fmt/format.h>

#include "host/host.h"
#include "instance/prseq.h"
#include "model/tracks.h"
#include "shell/event_keywords.h"
#include "shell/instance.h"

namespace tq {

namespace {

using Advice = std::vector<std::string>;

/// Who looks for sounds is asked, as the message itself would.
void on_link(const Prseq& box, AtomSpan link, Advice& advice) {
    if (link.empty() || !link[0].is_symbol()) return;
    const Symbol name = link[0].as_symbol();
    const Host& host = box.host();
    if (name.empty() || host.things.contains(name)) return;
    host.patch.want_buffer(name);
    if (!host.things.contains(name))
        advice.push_back(
            fmt::format("there is no sound \"{0}\", and the event has none: \".buffer {0} FILE\" makes one",
                        name.text()));
}

void on_event(const Prseq& box, AtomSpan atoms, Advice& advice) {
    const EventKeywords keywords = parse_event_keywords(atoms);
    on_link(box, keywords.buffer.atoms, advice);
    if (const std::string& tag = keywords.unclosed.text(); !tag.empty())
        advice.push_back(fmt::format("\"{}\" has no \"</{}\": all that follows was taken for its own", tag,
                                     tag.substr(1)));
    if (!keywords.id && keywords.note.atoms.size() == 1)
        advice.push_back("a note without velocity is silent: \"<note> PITCH VELOCITY </note>\"");
    if (!keywords.passed_over.empty()) advice.push_back("passed over: " + atom_gettext(keywords.passed_over));
}

void on_active_track(const Prseq& box, AtomSpan, Advice& advice) {
    if (!TQ_Prseq_Tracks_GetActiveTrack(box))
        advice.push_back("there is no track yet: \"track_add\" makes one");
}

void on_index(const Prseq& box, long index, Advice& advice) {
    if (box.tracks.empty()) return on_active_track(box, {}, advice);
    if (track_at(box, index)) return;
    advice.push_back(fmt::format("there is no track {}: the last one is {}", index, box.tracks.size() - 1));
}

void on_track(const Prseq& box, AtomSpan atoms, Advice& advice) {
    if (!atoms.empty()) on_index(box, atoms[0].as_long(), advice);
}

/// The index may be left out.
void on_track_switch(const Prseq& box, AtomSpan atoms, Advice& advice) {
    on_index(box, atoms.size() == 2 ? atoms[0].as_long() : box.activetrack, advice);
}

constexpr struct {
    const char* message;
    void (*look)(const Prseq& box, AtomSpan atoms, Advice& advice);
} rows[] = {
    {"event", on_event},
    {"track_active", on_track},
    {"track_visible", on_track_switch},
    {"track_mute", on_track_switch},
    {"track_color", on_active_track},
    {"track_bpf_add", on_active_track},
    {"track_parameter_add", on_active_track},
};

/// The message that a line of numbers was taken for.
void on_number(const MessageCall& message, Advice& advice) {
    const std::string number = atom_gettext(AtomSpan(message.arguments).first(1));
    if (message.arguments.size() == 1)
        advice.push_back(
            fmt::format("\"{}\" was taken for \"{} {}\": 1 and more plays, 0 stops, less than 0 does nothing",
                        number, message.selector.text(), number));
    else
        advice.push_back("a message begins with its name");
}

}  // namespace

bool is_understood(Symbol selector) {
    const Class& c = prseq_class();
    const std::string& name = selector.text();
    return c.find_method(selector) || c.find_attribute(selector) ||
           (name.starts_with("get") && c.find_attribute(gensym(name.substr(3))));
}

std::vector<std::string> advice_on(const Prseq& box, const MessageCall& message, bool begins_with_number) {
    Advice advice;
    if (begins_with_number) on_number(message, advice);
    for (const auto& row : rows)
        if (message.selector.text() == row.message) row.look(box, message.arguments, advice);
    return advice;
}

}  // namespace tq
