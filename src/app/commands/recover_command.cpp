#include <cstdio>
#include <filesystem>

#include "app/commands/commands.h"
#include "app/journal/kept_work.h"
#include "app/patch/recent_files.h"
#include "file/document_writer.h"
#include "host/files.h"
#include "host/graphics_runtime.h"

namespace tq {

namespace {

void complain(const std::string& reason) { std::fprintf(stderr, "sorvo: %s\n", reason.c_str()); }

std::optional<KeptAmount> amount_of(const std::optional<KeptLook>& look) {
    return look ? std::optional(look->amount) : std::nullopt;
}

void print(const KeptWork& work, const std::optional<KeptLook>& look) {
    std::printf("%s\n", kept_work_line(work, amount_of(look)).c_str());
    std::fflush(stdout);  // the next one may take long
}

std::optional<std::string> write(KeptLook& look, const std::string& target) {
    if (std::filesystem::path(target).extension() == ".png") return write_picture(look, target);
    std::string fault;
    const std::string text = TQ_Prseq_Json_MakeDictionary(look.session->box(), true) + "\n";
    return write_file(target, text, fault) ? std::nullopt : std::optional(fault);
}

/// Nothing is done to it: it can still be brought back, a session with its history.
int write_one(const KeptWork& work, const std::string& target, bool told) {
    std::optional<KeptLook> look = look_at(work);
    if (!look) {
        complain("could not bring back " + work.path.string());
        return 1;
    }
    if (!look->fault.empty()) complain("the session did not come back as a whole: " + look->fault);
    if (told) print(work, look);
    const std::optional<std::string> fault = target.empty() ? std::nullopt : write(*look, target);
    if (fault) complain("could not write \"" + target + "\": " + *fault);
    return fault ? 1 : 0;
}

int recover_from(const std::string& path, const std::string& target) {
    if (const std::optional<KeptWork> work = kept_work_at(path)) return write_one(*work, target, true);
    complain("there is neither a session nor a copy at " + path);
    return 1;
}

}  // namespace

int run_recover(const RecoverCommand& command) {
    const GraphicsRuntime graphics(GraphicsRuntime::Screen::Never);  // where a press landed depends on texts
    if (!command.from.empty()) return recover_from(command.from, command.target);
    const KeptWorkFound found = find_kept_work();
    for (const std::string& note : found.notes) complain(note);
    if (command.list || command.target.empty()) {
        for (const KeptWork& work : found.work) print(work, look_at(work));
        return 0;
    }
    for (const KeptWork& work : found.work)
        if (work.kind == KeptWork::Kind::Session) return write_one(work, command.target, false);
    complain("there is no session to bring back");
    return 1;
}

int run_recent() {
    for (const std::string& path : recent_files()) std::printf("%s\n", path.c_str());
    return 0;
}

}  // namespace tq
