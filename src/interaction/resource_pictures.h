// Pictures of the resource folder, and a word about those that are missing.
#pragma once

#include "host/image.h"

namespace tq {

struct Prseq;

/// None, and "file %s not found" is posted, when there is no such picture. It is posted a moment later: the
/// instance may be in the making, when nobody hears what it says.
SurfaceRef picture_or_error(Prseq& object, const char* filename);

}  // namespace tq
