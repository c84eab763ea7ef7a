#include "file/document_messages.h"

#include <fmt/printf.h>

#include <utility>

#include "file/document_reader.h"
#include "file/document_writer.h"
#include "file/new_document.h"
#include "host/defer.h"
#include "host/files.h"
#include "instance/prseq.h"
#include "instance/utilities.h"

namespace tq {

namespace {

constexpr size_t longest_located_name = 2047, longest_chosen_name = 511;

/// Puts what was read of a file into the emptied box. Its name is the document's only when that succeeded:
/// what is not a document is never written over.
bool take_file(Prseq& object, const LocatedFile& file, const std::optional<DictionaryFile>& document) {
    const std::string folder_before = std::exchange(object.info.folder, file.folder);
    object.info.filename = cut_text(file.name, longest_located_name);
    bool parsed = document && TQ_Prseq_Json_ParseDictionary(object, document->root());
    if (!parsed) {
        object.info.filename.clear();
        object.info.folder = folder_before;
    }
    prseq_show(object, Change::Everything);
    return parsed;
}

bool read_file(Prseq& object, const LocatedFile& file) {
    return take_file(object, file, dictionary_read(object, path_in_folder(file.folder, file.name)));
}

bool read_by_name(Prseq& object, const std::string& name, const std::string& folder) {
    std::optional<LocatedFile> found = object.host().patch.locate(name, folder);
    if (found) return read_file(object, *found);
    object_error(object, fmt::sprintf("The file \"%s\" could not be found", name));
    return false;
}

void read_chosen(Prseq& object) {
    if (std::optional<LocatedFile> file = TQ_Prseq_Json_OpenDialog(object)) read_file(object, *file);
}

void write_chosen(Prseq& object, const std::string& name) {
    if (TQ_Prseq_Json_SaveDialog(object, name)) TQ_Prseq_Json_WriteDictionary(object);
}

/// Its file has another name from now on, whether it differs from it or not.
void call_document(Prseq& object, const std::string& name, const std::string& folder) {
    object.info.filename = name;
    object.info.folder = folder;
    prseq_show(object, Change::Nothing);
}

std::optional<LocatedFile> choice(DocumentInfo& info, const std::optional<std::string>& path) {
    info.dialogcancelled = !path;
    if (!path) return {};
    LocatedFile file = located(*path);
    file.name = cut_text(file.name, longest_chosen_name);
    return file;
}

}  // namespace

void empty_document(Prseq& object) {
    if (prseq_getdirtyflag(object))
        object.host().patch.keep_copy(object, TQ_Prseq_Json_MakeDictionary(object, true));
    TQ_Prseq_NewFile(object);
    prseq_show(object, Change::Everything);
}

void TQ_Prseq_Json_ReadFromReadMessage(Prseq& object, OptionalSymbol name) {
    std::string folder = object.info.folder;
    empty_document(object);
    if (name.symbol.empty())
        defer_low(object, read_chosen);
    else
        defer_low(object, [name, folder](Prseq& o) { read_by_name(o, name.symbol.text(), folder); });
}

void TQ_Prseq_Json_ReadFromReadagainMessage(Prseq& object) {
    // The document's own file first, not one of the same name in the working folder.
    std::string name = object.info.filename, path = path_in_folder(object.info.folder, name);
    empty_document(object);
    if (name.empty())
        defer_low(object, read_chosen);
    else
        defer_low(object, [path](Prseq& o) { read_by_name(o, path, ""); });
}

void TQ_Prseq_Json_ReadFromOpen(Prseq& object) {
    empty_document(object);
    defer_low(object, read_chosen);
}

void TQ_Prseq_Json_WriteFromWriteMessage(Prseq& object, OptionalSymbol name) {
    if (name.symbol.empty()) return TQ_Prseq_Json_WriteFromSaveAs(object);
    call_document(object, cut_text(name.symbol.text(), longest_located_name), object.info.folder);
    defer_low(object, [](Prseq& o) { TQ_Prseq_Json_WriteDictionary(o); });
}

void TQ_Prseq_Json_WriteFromWriteAgainMessage(Prseq& object) {
    defer_low(object, [](Prseq& o) {
        if (o.info.filename.empty())
            write_chosen(o, TQ_Prseq_Json_MakeUntitledFileName(o));
        else
            TQ_Prseq_Json_WriteDictionary(o);
    });
}

void TQ_Prseq_Json_WriteFromSave(Prseq& object) { TQ_Prseq_Json_WriteFromWriteAgainMessage(object); }

void TQ_Prseq_Json_WriteFromSaveAs(Prseq& object) {
    defer_low(object, [](Prseq& o) {
        write_chosen(o, o.info.filename.empty() ? TQ_Prseq_Json_MakeUntitledFileName(o) : o.info.filename);
    });
}

std::string TQ_Prseq_Json_MakeUntitledFileName(const Prseq& object) {
    return fmt::sprintf("untitled%ld.json", object.info.untitledcounter);
}

std::optional<LocatedFile> TQ_Prseq_Json_OpenDialog(Prseq& object) {
    return choice(object.info, object.host().patch.open_dialog());
}

bool TQ_Prseq_Json_SaveDialog(Prseq& object, const std::string& name) {
    std::optional<LocatedFile> file = choice(object.info, object.host().patch.save_dialog(name));
    if (!file) return false;
    call_document(object, file->name, file->folder);
    return true;
}

bool read_document(Prseq& object, const LocatedFile& file, std::optional<DictionaryFile> document) {
    empty_document(object);
    return take_file(object, file, document);
}

}  // namespace tq
