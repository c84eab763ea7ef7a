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
    PostPrinter posts;
    session.listen(posts);
    if (!import_midi_file(session.box(), command.source, {.pedal_as_curve = command.pedal_as_curve}))
        return 1;
    std::string fault;
    if (write_file(command.target, TQ_Prseq_Json_MakeDictionary(session.box(), true) + "\n", fault)) return 0;
    std::fprintf(stderr, "sorvo: could not write \"%s\": %s\n", command.target.c_str(), fault.c_str());
    return 1;
}

}  // namespace tq
