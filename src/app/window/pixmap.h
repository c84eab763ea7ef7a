// Pictures of the box where the toolkit shows them itself.
#pragma once

#include <QIcon>
#include <QPixmap>

#include "host/image.h"

namespace tq {

/// As sharp as a screen of this pixel ratio can show it.
QPixmap pixmap_of(const Surface& surface, double ratio);
/// The same for whichever screen it will be shown on.
QIcon icon_of(const Surface& surface);

}  // namespace tq
