#include "app/patch/calls.h"

#include <fmt/printf.h>

#include <utility>

#include "app/patch/import.h"
#include "app/patch/receivers.h"
#include "app/patch/session.h"
#include "edits/song_edits.h"
#include "file/document_messages.h"
#include "inspectors/inspectors.h"
#include "instance/change.h"
#include "interaction/commands.h"
#include "interaction/key_commands.h"
#include "interaction/mouse.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

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

bool make(Session& session, const ZoomCall& call) {
    zoom_at(session.box(), {call.x, call.y}, call.horizontal, call.vertical);
    return true;
}

bool make(Session& session, const KeyCall& call) {
    prseq_key(session.box(), call.code, call.modifiers);
    return true;
}

bool make(Session& session, const WindowCall& call) {
    patcherview_set_rect(session.host().view, {call.x, call.y, call.width, call.height});
    return true;
}

bool make(Session& session, const FieldCall& call) {
    for (Inspector& inspector : session.box().inspectors.all)
        if (auto field = inspector.fields.find(gensym(call.name)); field != inspector.fields.end())
            return field->second->modify(gensym(call.change), call.atoms);
    object_error(session.box(), fmt::sprintf("no field \"%s\" is open", call.name));
    return false;
}

bool make(Session& session, const CloseCall& call) {
    Inspector* inspector = find_inspector(session.box(), call.name);
    Patcher* patcher = inspector ? inspector->patcher.get() : nullptr;
    if (!patcher) {
        object_error(session.box(), fmt::sprintf("no inspector \"%s\" is open", call.name));
        return false;
    }
    patcher->position = call.position.value_or(patcher->position);
    patcher->close_by_hand();
    return true;
}

bool make(Session& session, const CommandCall& call) {
    const CommandRow* command = find_command(call.name);
    if (command)
        run_command(session.box(), command->id);
    else
        object_error(session.box(), fmt::sprintf("no command \"%s\"", call.name));
    return command;
}

bool is_hover(const MouseCall& call) {
    return call.kind == MouseCall::Kind::Move || call.kind == MouseCall::Kind::Leave;
}

bool make(Session& session, const MouseCall& call) {
    static constexpr void (*handlers[])(Prseq&, double, double, unsigned) = {
        prseq_mousedown, prseq_mousedrag,        prseq_mouseup,
        prseq_mousemove, prseq_mousedoubleclick, prseq_mouseleave};
    unsigned button = call.right ? modifier_right_button : modifier_left_button;
    if (is_hover(call)) button = 0;
    handlers[static_cast<size_t>(call.kind)](session.box(), call.x, call.y, call.modifiers | button);
    return true;
}

bool make(Session& session, const FocusCall& call) {
    if (call.in)
        prseq_focusgained(session.box());
    else
        prseq_focuslost(session.box());
    return true;
}

bool make(Session& session, const TempoCall& call) {
    const bool fits = change_tempo(session.box(), call.bpm);
    if (!fits) object_error(session.box(), "at this tempo the song would be longer than a timeline");
    return fits;
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

/// Who is bound to a name; none, and why in an error, when nobody hears what is sent there.
Object* listener_named(Session& session, const std::string& name) {
    Prseq& box = session.box();
    if (name == box_name) return &box;
    Object* const listener = symbol_thing(session.host(), gensym(name));
    if (listener && (!name.starts_with("gm:") || voice_of_receiver(name))) return listener;
    object_error(box, listener ? fmt::sprintf("there is no sound \"%s\"", name)
                               : fmt::sprintf("nobody listens to \"%s\"", name));
    return nullptr;
}

bool make(Session& session, const SendCall& call) {
    Object* const listener = listener_named(session, call.name);
    if (!listener) return false;
    const MessageCall message = message_of(call.message);
    session.sending = true;
    const bool done = object_method_typed(*listener, message.selector, message.arguments);
    session.sending = false;
    return done;
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

void be_without_file(Prseq& box) {
    box.info.filename.clear();
    box.info.folder.clear();
    prseq_setdirtyflag(box, true);
}

/// The file is read once, since it may be a pipe. One that cannot be opened leaves the document as it is.
bool make(Session& session, const OpenCall& call) {
    Prseq& box = session.box();
    PatchFiles& files = session.host().patch;
    const std::optional<LocatedFile> file = files.locate(call.file, "");
    if (!file) {
        object_error(box, fmt::sprintf("The file \"%s\" could not be found", call.file));
        return false;
    }
    const std::string path = path_in_folder(file->folder, file->name);
    std::string fault;
    const FileBytes bytes = files.read(path, fault);
    if (bytes && is_midi_file(path, *bytes)) return import_midi_bytes(box, path, *bytes).has_value();
    auto document = bytes ? dictionary_parse(*bytes, fault) : std::nullopt;
    if (document) {
        if (!read_document(box, *file, std::move(document))) return false;
        if (call.as_copy) be_without_file(box);
        return true;
    }
    object_error(box, fmt::sprintf("could not read \"%s\": %s", path, fault));
    return false;
}

bool make(Session& session, const ImportCall& call) {
    return import_midi_file(session.box(), call.file, {.pedal_as_curve = call.pedal_as_curve}).has_value();
}

}  // namespace

bool leaves_traces(const SessionCall& call) {
    const auto* mouse = std::get_if<MouseCall>(&call);
    return !mouse || !is_hover(*mouse);
}

bool perform(Session& session, const SessionCall& call) {
    return std::visit([&](const auto& record) { return make(session, record); }, call);
}

}  // namespace tq
