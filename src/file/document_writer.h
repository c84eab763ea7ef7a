// The document as a dictionary, and its file.
#pragma once

#include <string>

namespace tq {

struct Prseq;

/// The document's JSON text: with `lines`, an event a line; else all on one line.
std::string TQ_Prseq_Json_MakeDictionary(const Prseq& object, bool lines);
/// Writes the document to its file; a successful write clears the dirty flag. False when it could not be
/// written; why is posted.
bool TQ_Prseq_Json_WriteDictionary(Prseq& object);

}  // namespace tq
