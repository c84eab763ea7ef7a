// The ways in which documents are read and written. File work and dialogs are deferred until the message is
// over.
#pragma once

#include <optional>
#include <string>

#include "host/class.h"
#include "host/dictionary.h"
#include "host/files.h"

namespace tq {

struct Prseq;

/// Empties the document, and keeps a copy of one that has not been saved.
void empty_document(Prseq& object);

/// "read": empties the document, then reads the named file, or the one that the user chooses.
void TQ_Prseq_Json_ReadFromReadMessage(Prseq& object, OptionalSymbol name);
/// "readagain": the document's own file, or the one that the user chooses.
void TQ_Prseq_Json_ReadFromReadagainMessage(Prseq& object);
/// Menu "Open...".
void TQ_Prseq_Json_ReadFromOpen(Prseq& object);

/// "write": to the named file in the document's folder, or to the one that the user chooses.
void TQ_Prseq_Json_WriteFromWriteMessage(Prseq& object, OptionalSymbol name);
/// "writeagain" and menu "Save": to the document's own file, or to the one that the user chooses.
void TQ_Prseq_Json_WriteFromWriteAgainMessage(Prseq& object);
void TQ_Prseq_Json_WriteFromSave(Prseq& object);
/// Menu "Save As...".
void TQ_Prseq_Json_WriteFromSaveAs(Prseq& object);

/// "untitled%ld.json" with the untitled counter.
std::string TQ_Prseq_Json_MakeUntitledFileName(const Prseq& object);
/// Asks for a file to read; none when the user cancels.
std::optional<LocatedFile> TQ_Prseq_Json_OpenDialog(Prseq& object);
/// Asks for a file, which becomes the document's own; false when the user cancels.
bool TQ_Prseq_Json_SaveDialog(Prseq& object, const std::string& name);

/// Replaces the document by the one in a file that was read, now. False when it is none; why is posted.
bool read_document(Prseq& object, const LocatedFile& file, std::optional<DictionaryFile> document);

}  // namespace tq
