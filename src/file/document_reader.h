// A document from a dictionary.
#pragma once

#include "host/dictionary.h"

namespace tq {

struct Prseq;

/// Reads a dictionary into the emptied document. False, and why is posted, when it is no document of this
/// version.
bool TQ_Prseq_Json_ParseDictionary(Prseq& object, const Dictionary& dictionary);

}  // namespace tq
