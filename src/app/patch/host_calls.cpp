#include "app/patch/host_calls.h"

#include <fmt/format.h>

#include "app/patch/import.h"
#include "file/document_messages.h"
#include "file/document_writer.h"
#include "instance/change.h"
#include "interaction/key_commands.h"
#include "interaction/mouse.h"

namespace tq {

namespace {

/// A document that is replaced before it was saved is kept.
void keep_unsaved(Session& session) {
    const Prseq& box = session.box();
    if (prseq_getdirtyflag(box)) session.host().patch.keep_copy(box, TQ_Prseq_Json_MakeDictionary(box, true));
}

/// A name as one word of a driver line.
std::string word(const std::string& name) { return atom_gettext(Atoms{gensym(name)}); }

}  // namespace

void call_size(Session& session, Size size) {
    session.call([&] { return fmt::format(".size {} {}", size.width, size.height); },
                 [&] { jbox_set_size(session.box(), size); });
}

void call_wheel(Session& session, Point at, double dx, double dy) {
    session.call([&] { return fmt::format(".wheel {} {} {} {}", at.x, at.y, dx, dy); },
                 [&] { prseq_mousewheel(session.box(), at.x, at.y, 0, dx, dy); });
}

void call_key(Session& session, long code, unsigned modifiers) {
    auto line = [&] {
        std::string text = fmt::format(".key {}", code);
        for (const ModifierName& row : modifier_names)
            if (modifiers & row.bit) text += fmt::format(" {}", row.name);
        return text;
    };
    session.call(line, [&] { prseq_key(session.box(), code, modifiers); });
}

void call_focus(Session& session, bool in) {
    session.call([&] { return in ? ".focus in" : ".focus out"; },
                 [&] { in ? prseq_focusgained(session.box()) : prseq_focuslost(session.box()); });
}

void call_tempo(Session& session, double bpm) {
    session.call([&] { return fmt::format(".tempo {}", bpm); },
                 [&] { itm_settempo(*session.box().transport, bpm); });
}

void call_transport(Session& session, double ms) {
    session.call([&] { return fmt::format(".transport {}", ms); },
                 [&] {
                     Itm& itm = *session.box().transport;
                     itm_setticks(itm, itm_mstoticks(itm, ms));
                 });
}

void call_feedback(Session& session, bool on) {
    session.call([&] { return on ? ".feedback on" : ".feedback off"; }, [&] { session.feedback = on; });
}

void call_receiver(Session& session, const std::string& name) {
    session.call([&] { return ".receiver " + word(name); }, [&] { session.make_receiver(gensym(name)); });
}

void call_buffer(Session& session, const std::string& name, const std::string& file) {
    session.call([&] { return ".buffer " + word(name) + (file.empty() ? "" : " " + word(file)); },
                 [&] {
                     if (file.empty())
                         buffer_remove(session.host(), gensym(name));
                     else if (auto reason = buffer_read(session.host(), gensym(name), file))
                         object_error(session.box(), *reason);
                 });
}

std::string sound_line(const Host& host, Symbol name) {
    const std::string line = ".sound " + atom_gettext(Atoms{name});
    const Buffer* buffer = buffer_named(host, name);
    if (!buffer) return line;
    const SoundFormat format = buffer->use()->format();
    return fmt::format("{} {} {} {}", line, format.frames, format.channels, format.rate) +
           (buffer->path().empty() ? "" : " " + word(buffer->path()));
}

void call_sound(Session& session, Symbol name, const std::optional<SoundFormat>& format,
                const std::string& file) {
    Host& host = session.host();
    auto make = [&] {
        std::string fault;
        SoundRef sound = file.empty() ? nullptr : read_sound_file(file, fault);
        if (!sound || sound->format() != *format)
            sound = new Sound(format->channels, format->rate,
                              std::vector<float>(static_cast<size_t>(format->frames * format->channels)));
        buffer_set(host, name, std::move(sound), file);
    };
    // Whoever records calls has been told of the buffer itself by then.
    session.call([&] { return "# sound " + atom_gettext(Atoms{name}); },
                 [&] { format ? make() : static_cast<void>(buffer_remove(host, name)); });
}

void call_seed(Session& session, std::uint32_t seed) {
    session.call([&] { return fmt::format(".seed {}", seed); }, [&] { session.host().random.seed(seed); });
}

bool call_open(Session& session, const std::string& path) {
    bool opened = false;
    session.call([&] { return ".open " + word(path); },
                 [&] {
                     keep_unsaved(session);
                     opened = read_document(session.box(), path);
                 });
    return opened;
}

bool call_import(Session& session, const std::string& path) {
    bool imported = false;
    session.call([&] { return ".import " + word(path); },
                 [&] {
                     keep_unsaved(session);
                     imported = import_midi_file(session.box(), path).has_value();
                 });
    return imported;
}

}  // namespace tq
