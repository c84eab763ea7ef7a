#include "file/document_messages.h"

#include <fmt/printf.h>

#include "file/document_reader.h"
#include "file/document_writer.h"
#include "host/defer.h"
#include "host/files.h"
#include "shell/change.h"
#include "shell/instance.h"
#include "shell/utilities.h"

namespace tq {

namespace {

void show_all(Prseq& object) { prseq_show(object, Change::Everything); }

/// Reads the document's own file into the emptied box.
bool read_own_file(Prseq& object) {
    std::optional<DictionaryFile> file = dictionary_read(object, path_in_folder(object.info.folder, object.info.filename));
    bool read = file && TQ_Prseq_Json_ParseDictionary(object, file->root());
    show_all(object);
    return read;
}

void read_by_name(Prseq& object, Symbol name) {
    std::optional<LocatedFile> found = locatefile_extended(name.text(), object.info.folder);
    if (!found) {
        object_error(object, fmt::sprintf("The file \"%s\" could not be found", name.text()));
        return;
    }
    object.info.filename = cut_text(found->name, 2047);
    object.info.folder = found->folder;
    read_own_file(object);
}

}  // namespace

void TQ_Prseq_Json_ReadFromReadMessage(Prseq& object, OptionalSymbol name) {
    TQ_Prseq_NewFile(object);
    show_all(object);
    if (!name.symbol.empty()) defer_low(object, [name](Prseq& o) { read_by_name(o, name.symbol); });
}

void TQ_Prseq_Json_WriteFromWriteMessage(Prseq& object, OptionalSymbol name) {
    if (name.symbol.empty()) return;
    object.info.filename = cut_text(name.symbol.text(), 2047);
    defer_low(object, [](Prseq& o) { TQ_Prseq_Json_WriteDictionary(o); });
}

bool read_document(Prseq& object, const std::string& path) {
    TQ_Prseq_NewFile(object);
    std::optional<LocatedFile> found = locatefile_extended(path, "");
    if (!found) {
        object_error(object, fmt::sprintf("The file \"%s\" could not be found", path));
        return false;
    }
    object.info.filename = found->name;
    object.info.folder = found->folder;
    return read_own_file(object);
}

}  // namespace tq
