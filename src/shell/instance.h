// Making instances of the class.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "host/class.h"
#include "instance/prseq.h"

namespace tq {

/// The class "tq.sorvo"; registered once.
const Class& prseq_class();

/// What a patch keeps of a box: attribute values by name.
using BoxDictionary = std::vector<std::pair<Symbol, Atoms>>;

/// A new box with an empty document, its attributes as saved; none without a dictionary.
std::unique_ptr<Prseq> prseq_new(Host& host, const std::optional<BoxDictionary>& dictionary);
/// The attribute values that a patch saves.
BoxDictionary prseq_save(const Prseq& object);

/// The window that the box stands in is shown, or hidden: from now on the box tells where it is, or no more.
void prseq_attach_patcherview(Prseq& object);
void prseq_detach_patcherview(Prseq& object);
/// What stands at an outlet or the inlet (kind 'i' or 'o'), at most 255 bytes; empty for other numbers.
std::string prseq_assist(char kind, long index);

}  // namespace tq
