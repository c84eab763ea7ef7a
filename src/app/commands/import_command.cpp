#include <cstdio>

#include "app/commands/commands.h"
#include "app/commands/faults.h"
#include "app/patch/import.h"
#include "app/patch/session.h"
#include "file/document_writer.h"
#include "host/files.h"

namespace tq {

int run_import(const ImportCommand& command) {
    Session session;
    FaultPrinter faults;
    session.listen(faults);
    std::optional<MidiImport> import = import_midi_file(session.box(), command.source);
    if (!import) return 1;
    if (import->ignored_messages > 0)
        std::fprintf(stderr, "%s: %zu messages that say nothing about notes were left out\n",
                     command.source.c_str(), import->ignored_messages);
    std::string fault;
    if (write_file(command.target, TQ_Prseq_Json_MakeDictionary(session.box(), true) + "\n", fault)) return 0;
    std::fprintf(stderr, "sorvo: could not write \"%s\": %s\n", command.target.c_str(), fault.c_str());
    return 1;
}

}  // namespace tq
