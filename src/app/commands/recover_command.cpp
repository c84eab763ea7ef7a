#include <cstdio>

#include "app/commands/commands.h"
#include "app/journal/recovery.h"
#include "app/patch/recent_files.h"
#include "file/document_writer.h"
#include "host/files.h"
#include "host/graphics_runtime.h"

namespace tq {

namespace {

void list(const std::vector<DeadSession>& sessions) {
    for (const DeadSession& session : sessions)
        std::printf("%s  %s  %s\n", session.ended.c_str(),
                    session.document.empty() ? "(never saved)" : session.document.c_str(),
                    session.folder.c_str());
}

/// Nothing is done to the session: it can still be brought back, with its history.
int write_latest(const DeadSession& latest, const std::string& target) {
    const GraphicsRuntime graphics(GraphicsRuntime::Screen::Never);  // where a press landed depends on texts
    std::optional<Recovery> recovery = recover(latest.folder);
    if (!recovery) {
        std::fprintf(stderr, "sorvo: could not bring back %s\n", latest.folder.c_str());
        return 1;
    }
    if (!recovery->replay.fault.empty())
        std::fprintf(stderr, "sorvo: the session did not come back as a whole: %s\n",
                     recovery->replay.fault.c_str());
    std::string fault;
    const std::string text = TQ_Prseq_Json_MakeDictionary(recovery->session->box(), true) + "\n";
    if (write_file(target, text, fault)) return 0;
    std::fprintf(stderr, "sorvo: could not write \"%s\": %s\n", target.c_str(), fault.c_str());
    return 1;
}

}  // namespace

int run_recover(const RecoverCommand& command) {
    const DeadSessions dead = find_dead_sessions();
    for (const std::string& note : dead.notes) std::fprintf(stderr, "sorvo: %s\n", note.c_str());
    if (command.list || command.target.empty()) {
        list(dead.sessions);
        return 0;
    }
    if (!dead.sessions.empty()) return write_latest(dead.sessions.front(), command.target);
    std::fprintf(stderr, "sorvo: there is no session to bring back\n");
    return 1;
}

int run_recent() {
    for (const std::string& path : recent_files()) std::printf("%s\n", path.c_str());
    return 0;
}

}  // namespace tq
