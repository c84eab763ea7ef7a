#include <cstdio>
#include <filesystem>

#include "app/commands/commands.h"
#include "app/window/run.h"

namespace tq {

namespace {

/// Sound and picture of a file, in a folder beside where the program was called.
int render_instead(const std::string& file) {
    namespace fs = std::filesystem;
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
    render.wav = name + ".wav";
    render.png = name + ".png";
    return run_render(render);
}

}  // namespace

int run_window(const WindowCommand& command) {
    const WindowOptions options{command.file, command.recover, command.lines};
    if (std::optional<int> status = show_main_window(options)) return *status;
    return render_instead(command.file);
}

}  // namespace tq
