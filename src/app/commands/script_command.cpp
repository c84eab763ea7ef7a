#include <iostream>
#include <sstream>

#include "app/commands/commands.h"
#include "app/commands/named_sounds.h"
#include "app/commands/size.h"
#include "app/script/script.h"
#include "host/files.h"
#include "host/graphics_runtime.h"

namespace tq {

namespace {

/// False, and why on standard error, when the script cannot be read at all.
bool run_file(Script& script, const std::string& name) {
    if (name == "-") {
        script.run(std::cin, "-");
        return true;
    }
    std::string fault;
    FileBytes text = read_file(name, fault);
    if (!text) {
        std::cerr << "sorvo: could not read \"" << name << "\": " << fault << "\n";
        return false;
    }
    std::istringstream lines(*text);
    script.run(lines, name);
    return true;
}

}  // namespace

int run_script(const ScriptCommand& command) {
    ScriptOptions options;
    options.document = command.document;
    options.times = command.times;
    if (!command.size.empty()) {
        std::optional<Size> size = parse_size(command.size);
        if (!size) {
            std::cerr << "sorvo: --size takes WIDTHxHEIGHT in pixels, not \"" << command.size << "\"\n";
            return 2;
        }
        options.width = size->width;
        options.height = size->height;
    }
    GraphicsRuntime graphics(GraphicsRuntime::Screen::Never);
    int status = 0;
    options.prepare = [&](Session& session) { status = make_named_buffers(session, command.buffers); };
    options.advise = [](const ScriptPlace& place, const std::string& what) {
        std::cout.flush();
        std::cerr << text_of(place) << ": " << what << "\n";
    };
    Script script(options, std::cout);
    if (status) return status;
    if (command.quiet) script.set_quiet(true);
    try {
        for (const std::string& name : command.scripts)
            if (!run_file(script, name)) return 1;
    } catch (const ScriptFault& fault) {
        script.set_quiet(false);
        std::cout.flush();
        std::cerr << fault.file << ":" << fault.line << ": " << fault.what << "\n";
        return 2;
    }
    script.set_quiet(false);
    std::cout.flush();
    return std::cout ? 0 : 1;
}

}  // namespace tq
