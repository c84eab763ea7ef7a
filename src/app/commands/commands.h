// The program's subcommands. Each returns the exit status: 0, or 1 when the work failed; why stands on
// standard error then.
#pragma once

#include <string>
#include <vector>

namespace tq {

struct ImportCommand {
    std::string source, target;
    bool pedal_as_curve = false;
};
int run_import(const ImportCommand& command);

struct RecoverCommand {
    std::string target;  ///< the document or the picture (.png) to write; empty: what there is is listed
    std::string from;    ///< a session's folder or a copy; empty: the latest session
    bool list = false;
};
/// Lists what was not lost, or writes the document of the latest session, or of another; it stays.
int run_recover(const RecoverCommand& command);

/// Lists the documents that were opened or saved last.
int run_recent();

struct ScriptCommand {
    std::string size;  ///< WxH; empty: 400x300
    std::string document;
    bool times = false, quiet = false;
    std::vector<std::string> buffers;  ///< "NAME=FILE"
    std::vector<std::string> scripts;  ///< "-" is standard input
};
/// 2 when a line of a script is not understood.
int run_script(const ScriptCommand& command);

struct PlayCommand {
    std::string file;
    bool print = false;
    std::vector<std::string> buffers;  ///< "NAME=FILE"
};
int run_play(const PlayCommand& command);

struct RenderCommand {
    std::string file;
    std::string wav, midi, png;        ///< what to write; empty: not
    bool full_level = false;           ///< the sound is as loud as its file can be
    bool whole = false;                ///< the picture shows the whole song, whatever the document's view is
    std::string size;                  ///< of the picture, WxH; empty: 1200x700
    std::vector<std::string> buffers;  ///< "NAME=FILE"
};
int run_render(const RenderCommand& command);

struct WindowCommand {
    std::string file;                  ///< empty: a new document
    bool demo = false;                 ///< the song that comes with the program, instead of a file
    bool recover = false;              ///< bring back the latest session that ended unexpectedly
    bool lines = false;                ///< lines of standard input drive the window
    std::vector<std::string> buffers;  ///< "NAME=FILE"
};
int run_window(const WindowCommand& command);

}  // namespace tq
