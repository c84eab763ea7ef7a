#include "app/script/running_scripts.h"

#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <utility>

#include "app/patch/line_words.h"
#include "app/script/framed_lines.h"
#include "host/files.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

fs::path path_of(const std::string& file) {
    std::error_code ignored;
    return fs::weakly_canonical(file, ignored);
}

}  // namespace

void RunningScripts::begin(std::istream& lines, const std::string& name) {
    scripts_.push_back({name, path_of(name), nullptr, &lines, 0});
}

void RunningScripts::begin(const std::string& file) {
    fs::path path = path_of(file);
    if (std::ranges::find(scripts_, path, &Script::path) != scripts_.end())
        throw ScriptFault{"", 0, fmt::format("\"{}\" is running: a script cannot run itself", file)};
    std::string fault;
    const FileBytes text = read_file(file, fault);
    if (!text) throw ScriptFault{"", 0, fmt::format("could not read \"{}\": {}", file, fault)};
    auto lines = std::make_unique<std::istringstream>(*text);
    std::istream* const stream = lines.get();
    scripts_.push_back({file, std::move(path), std::move(lines), stream, 0});
}

bool RunningScripts::take(std::string& line) {
    for (; any(); scripts_.pop_back()) {
        Script& script = scripts_.back();
        place_ = {script.name, script.number + 1};
        try {
            if (read_framed(*script.lines, line, script.number)) return true;
        } catch (ScriptFault& fault) {
            fault.file = place_.file;
            fault.line = place_.line;
            throw;
        }
    }
    return false;
}

std::string RunningScripts::beside(const std::string& file) const {
    if (!any()) return file;
    const fs::path path = fs::path(scripts_.back().name).parent_path() / file;
    std::error_code ignored;
    return fs::exists(path, ignored) ? path.string() : file;
}

}  // namespace tq
