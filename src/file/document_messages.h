// The messages that read and write documents.
#pragma once

#include <string>

#include "host/class.h"

namespace tq {

struct Prseq;

/// "read": empties the document, then reads the named file.
void TQ_Prseq_Json_ReadFromReadMessage(Prseq& object, OptionalSymbol name);
/// "write": writes to the named file in the document's folder.
void TQ_Prseq_Json_WriteFromWriteMessage(Prseq& object, OptionalSymbol name);

/// Reads a document from a path into the emptied box, now. False when it is none; why is posted.
bool read_document(Prseq& object, const std::string& path);

}  // namespace tq
