#include "app/patch/export.h"

#include <exception>

#include "app/midi/writer.h"
#include "app/patch/export_meter.h"
#include "app/patch/note_listener.h"
#include "app/patch/perform.h"
#include "app/sound/recorder.h"
#include "app/sound/wav.h"
#include "file/document_messages.h"
#include "file/document_writer.h"
#include "host/buffer.h"
#include "host/dictionary.h"
#include "host/files.h"

namespace tq {

namespace {

constexpr double longest_ms = 24 * 3600e3;

/// The sounds are shared; nobody changes them.
void copy_buffers(const Host& from, Host& to) {
    for (const auto& [name, buffer] : from.buffers) buffer_set(to, name, buffer->use(), buffer->path());
}

/// False when the document cannot be read back, which would be a fault of ours.
bool copy_document(Session& from, Session& to, std::string& fault) {
    copy_buffers(from.host(), to.host());
    std::optional<DictionaryFile> document =
        dictionary_parse(TQ_Prseq_Json_MakeDictionary(from.box(), false), fault);
    return document && read_document(to.box(), {"copy.json", ""}, std::move(document));
}

bool is_midi(const std::string& path) { return path.ends_with(".mid") || path.ends_with(".midi"); }

}  // namespace

bool write_notes(const Session& session, const NoteListener& notes, const Recorder& recorder,
                 const std::string& path, std::string& fault) {
    const std::vector<MidiPart> parts = recorder.midi_parts(notes.track_names());
    const std::vector<std::byte> bytes = write_midi_file(parts, meter_of(session.box()));
    return write_file(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, fault);
}

ExportEnd export_document(Session& session, const ExportWish& wish,
                          const std::function<bool(double)>& progress) {
    const std::string& path = wish.path;
    if (end_of_events(session.box()) > longest_ms) return {.fault = "the document is longer than a day"};
    if (!progress(0)) return {};
    ExportEnd end;
    Session copy;
    if (!copy_document(session, copy, end.fault)) return end;
    NoteListener notes(copy);
    Recorder recorder;
    notes.add(recorder);
    play_through(copy);
    try {
        if (is_midi(path))
            end.written = write_notes(copy, notes, recorder, path, end.fault);
        else
            end.written =
                render_wav(recorder.notes(), path, {.progress = progress, .full_level = wish.full_level});
    } catch (const std::exception& error) {
        end.fault = error.what();
    }
    return end;
}

}  // namespace tq
