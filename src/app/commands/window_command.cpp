#include <cstdio>
#include <filesystem>

#include "app/commands/commands.h"
#include "app/commands/named_sounds.h"
#include "app/window/run.h"
#include "host/resources.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

std::string file_of(const WindowCommand& command) {
    return command.demo ? (resources_folder() / "first-steps.json").string() : command.file;
}

/// Sound and picture of a file, in a folder beside where the program was called.
int render_instead(const WindowCommand& command) {
    const std::string file = file_of(command);
    if (file.empty()) {
        std::fprintf(stderr, "sorvo: no display, and no FILE to render instead\n");
        return 1;
    }
    const fs::path folder = "out";
    std::error_code fault;
    fs::create_directories(folder, fault);
    const std::string name = (folder / fs::path(file).stem()).string();
    std::fprintf(stderr, "sorvo: no display; rendering %s.wav and %s.png instead\n", name.c_str(),
                 name.c_str());
    RenderCommand render;
    render.file = file;
    render.buffers = command.buffers;
    render.wav = name + ".wav";
    render.png = name + ".png";
    return run_render(render);
}

}  // namespace

int run_window(const WindowCommand& command) {
    int status = 0;
    const auto prepare = [&](Session& session) {
        status = make_named_buffers(session, command.buffers);
        return status == 0;
    };
    const WindowOptions options{file_of(command), command.recover, command.lines, prepare};
    if (std::optional<int> shown = show_main_window(options)) return status ? status : *shown;
    return render_instead(command);
}

}  // namespace tq
