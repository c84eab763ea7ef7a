#include "app/window/pointer_text.h"

#include <cmath>

#include "app/window/note_names.h"
#include "app/window/position_text.h"
#include "app/window/shortcuts.h"
#include "instance/geometry.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "interaction/mouse_modes.h"
#include "interaction/pointer.h"
#include "model/tracks.h"
#include "view/icon_menu.h"

namespace tq {

namespace {

bool is_in(const Prseq& box, Part part, QPoint at) {
    return TQRectContainsPoint(box.layout[part], at.x(), at.y());
}

}  // namespace

QString pointer_text(const Prseq& box, QPoint at) {
    const bool in_keys = is_in(box, Part::KeyDisplay, at);
    if (!in_keys && !is_in(box, Part::MainDisplay, at)) return {};
    const Pointer pointer = pointer_at(box, at.x(), at.y(), 0);
    const QString key = note_name(std::floor(pointer.pitch), TQ_Prseq_Tracks_GetActiveTrack(box));
    const auto face = static_cast<TimeFace>(box.timedisplaytype);
    return in_keys ? key : position_text(face, pointer.ms, box.meter) + "  " + key;
}

QString tip_at(const Prseq& box, QPoint at) {
    if (!is_in(box, Part::UpperDisplay, at)) return {};
    const Rect& display = box.layout[Part::UpperDisplay];
    const std::optional<MouseMode> mode = icon_mode_at(box, {at.x() - display.x, at.y() - display.y});
    if (!mode) return {};
    const MouseModeRow& row = mouse_mode_row(*mode);
    const CommandRow* command = find_command(row.name + std::string("_mode"));
    const QString key = command ? key_text(command->id) : QString();
    return key.isEmpty() ? QString(row.label) : QString("%1 (%2)").arg(row.label, key);
}

}  // namespace tq
