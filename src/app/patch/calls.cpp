#include "app/patch/calls.h"

#include <fmt/printf.h>

#include "app/patch/import.h"
#include "app/patch/session.h"
#include "file/document_messages.h"
#include "file/document_writer.h"
#include "interaction/key_commands.h"
#include "shell/change.h"
#include "view/mousewheel.h"

namespace tq {

namespace {

/// A document that is replaced before it was saved is kept.
void keep_unsaved(Session& session) {
    const Prseq& box = session.box();
    if (prseq_getdirtyflag(box)) session.host().patch.keep_copy(box, TQ_Prseq_Json_MakeDictionary(box, true));
}

bool make(Session& session, const MessageCall& call) {
    return object_method_typed(session.box(), call.selector, call.arguments);
}

bool make(Session& session, const SizeCall& call) {
    jbox_set_size(session.box(), {call.width, call.height});
    return true;
}

bool make(Session& session, const WheelCall& call) {
    prseq_mousewheel(session.box(), call.x, call.y, 0, call.dx, call.dy);
    return true;
}

bool make(Session& session, const KeyCall& call) {
    prseq_key(session.box(), call.code, call.modifiers);
    return true;
}

bool make(Session& session, const FocusCall& call) {
    session.box().focus = call.in;
    prseq_show(session.box(), Change::UpperDisplay);
    return true;
}

bool make(Session& session, const TempoCall& call) {
    itm_settempo(*session.box().transport, call.bpm);
    return true;
}

bool make(Session& session, const TransportCall& call) {
    Itm& itm = *session.box().transport;
    itm_setticks(itm, itm_mstoticks(itm, call.ms));
    return true;
}

bool make(Session& session, const FeedbackCall& call) {
    session.feedback = call.on;
    return true;
}

bool make(Session& session, const ReceiverCall& call) {
    session.make_receiver(gensym(call.name));
    return true;
}

bool make(Session& session, const BufferCall& call) {
    const Symbol name = gensym(call.name);
    if (call.file.empty()) return buffer_remove(session.host(), name);
    const std::optional<std::string> reason = buffer_read(session.host(), name, call.file);
    if (reason) object_error(session.box(), *reason);
    return !reason;
}

bool make(Session& session, const SoundCall& call) {
    const Symbol name = gensym(call.name);
    if (!call.format) return buffer_remove(session.host(), name);
    std::string fault;
    SoundRef sound = call.file.empty() ? nullptr : read_sound_file(call.file, fault);
    if (!sound || sound->format() != *call.format)
        sound =
            new Sound(call.format->channels, call.format->rate,
                      std::vector<float>(static_cast<size_t>(call.format->frames * call.format->channels)));
    return buffer_set(session.host(), name, std::move(sound), call.file);
}

bool make(Session& session, const SeedCall& call) {
    session.host().random.seed(call.seed);
    return true;
}

bool make(Session& session, const OpenCall& call) {
    keep_unsaved(session);
    return read_document(session.box(), call.file);
}

bool make(Session& session, const ImportCall& call) {
    keep_unsaved(session);
    return import_midi_file(session.box(), call.file).has_value();
}

}  // namespace

bool perform(Session& session, const SessionCall& call) {
    return std::visit([&](const auto& record) { return make(session, record); }, call);
}

}  // namespace tq
