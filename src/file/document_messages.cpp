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

constexpr size_t longest_located_name = 2047, longest_chosen_name = 511;

void empty_document(Prseq& object) {
    if (prseq_getdirtyflag(object))
        object.host().patch.keep_copy(object, TQ_Prseq_Json_MakeDictionary(object, true));
    TQ_Prseq_NewFile(object);
    prseq_show(object, Change::Everything);
}

/// Reads the document's own file into the emptied box.
bool read_own_file(Prseq& object) {
    std::optional<DictionaryFile> file =
        dictionary_read(object, path_in_folder(object.info.folder, object.info.filename));
    bool read = file && TQ_Prseq_Json_ParseDictionary(object, file->root());
    prseq_show(object, Change::Everything);
    return read;
}

bool read_by_name(Prseq& object, const std::string& name, const std::string& folder) {
    std::optional<LocatedFile> found = object.host().patch.locate(name, folder);
    if (!found) {
        object_error(object, fmt::sprintf("The file \"%s\" could not be found", name));
        return false;
    }
    object.info.filename = cut_text(found->name, longest_located_name);
    object.info.folder = found->folder;
    return read_own_file(object);
}

void read_chosen(Prseq& object) {
    if (TQ_Prseq_Json_OpenDialog(object)) read_own_file(object);
}

void write_chosen(Prseq& object, const std::string& name) {
    if (TQ_Prseq_Json_SaveDialog(object, name)) TQ_Prseq_Json_WriteDictionary(object);
}

/// What a dialog chose becomes the document's file.
bool take_choice(DocumentInfo& info, const std::optional<std::string>& path) {
    info.dialogcancelled = !path;
    if (!path) return false;
    LocatedFile file = located(*path);
    info.filename = cut_text(file.name, longest_chosen_name);
    info.folder = file.folder;
    return true;
}

}  // namespace

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
    object.info.filename = cut_text(name.symbol.text(), longest_located_name);
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

bool TQ_Prseq_Json_OpenDialog(Prseq& object) {
    return take_choice(object.info, object.host().patch.open_dialog());
}

bool TQ_Prseq_Json_SaveDialog(Prseq& object, const std::string& name) {
    return take_choice(object.info, object.host().patch.save_dialog(name));
}

bool read_document(Prseq& object, const LocatedFile& file, const DictionaryFile& document) {
    empty_document(object);
    object.info.filename = cut_text(file.name, longest_located_name);
    object.info.folder = file.folder;
    const bool read = TQ_Prseq_Json_ParseDictionary(object, document.root());
    prseq_show(object, Change::Everything);
    return read;
}

}  // namespace tq
