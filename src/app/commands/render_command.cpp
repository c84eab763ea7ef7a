#include <cstdio>
#include <exception>

#include "app/commands/commands.h"
#include "app/commands/faults.h"
#include "app/commands/named_sounds.h"
#include "app/commands/size.h"
#include "app/patch/export.h"
#include "app/patch/note_listener.h"
#include "app/patch/paint_offscreen.h"
#include "app/patch/perform.h"
#include "app/sound/recorder.h"
#include "app/sound/wav.h"
#include "host/graphics_runtime.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

void complain(const std::string& reason) { std::fprintf(stderr, "sorvo: %s\n", reason.c_str()); }

constexpr double longest_ms = 24 * 3600e3;

/// Lays the box out in the picture's size: a document's view is meant for the box that it is opened in.
void lay_out(Session& session, OffscreenPainter& painter, const RenderCommand& command) {
    Size size = command.size.empty() ? Size{1200, 700} : *parse_size(command.size);
    jbox_set_size(session.box(), size);
    painter.paint(session.box());
}

bool write_picture(Session& session, OffscreenPainter& painter, const RenderCommand& command) {
    Prseq& box = session.box();
    box.zoom_animation = false;
    if (command.whole)
        zoom_to_song(box);
    else if (box.info.filename.empty())  // a document has its own view, a MIDI file is shown whole
        prseq_zoom_out_all(box);
    std::optional<std::string> reason = painter.paint_to_png(box, command.png);
    if (reason) complain(*reason);
    return !reason;
}

}  // namespace

int run_render(const RenderCommand& command) {
    if (!command.size.empty() && !parse_size(command.size)) {
        complain("--size takes WIDTHxHEIGHT in pixels, not \"" + command.size + "\"");
        return 2;
    }
    Session session;
    FaultPrinter faults;
    session.listen(faults);
    std::optional<GraphicsRuntime> graphics;
    OffscreenPainter painter;
    if (!command.png.empty()) {
        graphics.emplace(GraphicsRuntime::Screen::Never);
        lay_out(session, painter, command);
    }
    if (const int status = make_named_buffers(session, command.buffers)) return status;
    const SoundFiles sounds(session);
    if (!session.open(command.file)) return 1;
    // The picture first: playing moves the line cursor.
    if (!command.png.empty() && !write_picture(session, painter, command)) return 1;
    if (command.wav.empty() && command.midi.empty()) return 0;

    if (end_of_events(session.box()) > longest_ms) {
        complain("\"" + command.file +
                 "\" is longer than a day; sound and notes are written of shorter documents");
        return 1;
    }
    NoteListener notes(session);
    Recorder recorder;
    notes.add(recorder);
    play_through(session);
    try {
        std::string fault;
        if (!command.midi.empty() && !write_notes(session, notes, recorder, command.midi, fault)) {
            complain("could not write \"" + command.midi + "\": " + fault);
            return 1;
        }
        if (!command.wav.empty())
            render_wav(recorder.notes(), command.wav, {.full_level = command.full_level});
    } catch (const std::exception& error) {
        complain(error.what());
        return 1;
    }
    return 0;
}

}  // namespace tq
