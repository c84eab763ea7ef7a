#include <CLI/CLI.hpp>
#include <cstdio>
#include <new>

#include "app/commands/commands.h"

namespace {

void add_buffers(CLI::App& app, std::vector<std::string>& buffers) {
    app.add_option("--buffer", buffers, "the sound of a buffer, NAME=FILE; may be repeated")
        ->allow_extra_args(false);
}

}  // namespace

static int run(int argc, char** argv) {
    using namespace tq;
    CLI::App app("sorvo: a piano-roll timeline sequencer");
    app.set_version_flag("--version", "sorvo " SORVO_VERSION);
    app.footer("sorvo COMMAND --help tells more of a command.");
    WindowCommand window;
    CLI::Option* file = app.add_option(
        "FILE", window.file, "a document (.json, .sorvo) or a Standard MIDI File to open in the window");
    app.add_flag("--demo", window.demo, "open the song that comes with the program")->excludes(file);
    add_buffers(app, window.buffers);
    app.add_flag("--recover", window.recover,
                 "bring back the latest session that ended unexpectedly, without asking");
    app.add_flag("--stdin", window.lines,
                 "lines of standard input drive the window, and what the box says is printed");

    RecoverCommand recover;
    CLI::App* recover_app =
        app.add_subcommand("recover", "unsaved work that was not lost: list it, or write it");
    recover_app->add_flag("--list", recover.list,
                          "list it: when, what, tracks, events, ms, edits, name, path, with tabs between");
    recover_app->add_option("--from", recover.from,
                            "a session's folder or a copy, instead of the latest session");
    recover_app->add_option("OUT", recover.target,
                            "the document to write, or its picture (.png); what it comes from stays");

    CLI::App* recent_app = app.add_subcommand("recent", "list the documents that were opened or saved last");

    PlayCommand play;
    CLI::App* play_app = app.add_subcommand("play", "play a file in real time, without a window");
    play_app->add_option("FILE", play.file, "a document or a Standard MIDI File")->required();
    play_app->add_flag("--print", play.print, "print what is sent, with its logical time in ms");
    add_buffers(*play_app, play.buffers);

    RenderCommand render;
    CLI::App* render_app =
        app.add_subcommand("render", "write sound, notes or picture to files, faster than real time");
    render_app->add_option("FILE", render.file, "a document or a Standard MIDI File")->required();
    render_app->add_option("--wav", render.wav, "the sound, as a WAV file");
    render_app->add_option("--midi", render.midi, "the notes, as a Standard MIDI File");
    render_app->add_option("--png", render.png, "the picture, as a PNG file");
    render_app->add_flag("--full-level", render.full_level, "the sound is as loud as its file can be");
    render_app->add_flag("--whole", render.whole, "the picture shows the whole song");
    render_app->add_option("--size", render.size, "the picture's size, WIDTHxHEIGHT in pixels (1200x700)");
    add_buffers(*render_app, render.buffers);

    ImportCommand import;
    CLI::App* import_app = app.add_subcommand("import", "make a document of a Standard MIDI File");
    import_app->add_option("IN", import.source, "a Standard MIDI File")->required();
    import_app->add_option("OUT", import.target, "the document to write")->required();
    import_app->add_flag("--pedal-curve", import.pedal_as_curve,
                         "keep the sustain pedal as a curve, rather than lengthen what sounds");

    ScriptCommand script;
    CLI::App* script_app = app.add_subcommand("script", "drive a box in virtual time and print what it says");
    script_app->add_option("--size", script.size, "the box's size, WIDTHxHEIGHT in pixels (400x300)");
    script_app->add_option("--document", script.document, "a document or a Standard MIDI File to open first");
    add_buffers(*script_app, script.buffers);
    script_app->add_flag("--times", script.times, "begin every line with the virtual time in ms");
    script_app->add_flag("--quiet", script.quiet,
                         "answer no line; say at the end what came of all, and the mistakes");
    script_app->add_option("SCRIPT", script.scripts, "script files; - is standard input")->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    if (*render_app && render.wav.empty() && render.midi.empty() && render.png.empty()) {
        std::fprintf(stderr, "sorvo render: say what to write: --wav, --midi or --png\n");
        return 2;
    }
    if (*recover_app) return run_recover(recover);
    if (*recent_app) return run_recent();
    if (*play_app) return run_play(play);
    if (*render_app) return run_render(render);
    if (*import_app) return run_import(import);
    if (*script_app) return run_script(script);
    return run_window(window);
}

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("sorvo: there is not enough memory\n", stderr);
        return 1;
    }
}
