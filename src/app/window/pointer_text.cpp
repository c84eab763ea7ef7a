#include "app/window/pointer_text.h"

#include <cmath>

#include "app/window/note_names.h"
#include "app/window/position_text.h"
#include "app/window/shortcuts.h"
#include "app/window/sound_menu.h"
#include "instance/geometry.h"
#include "instance/prseq.h"
#include "interaction/commands.h"
#include "interaction/mouse_modes.h"
#include "interaction/pointer.h"
#include "model/tracks.h"
#include "view/icon_menu.h"
#include "view/loop_bar.h"
#include "view/trackdisplay.h"

namespace tq {

namespace {

bool is_in(const Prseq& box, Part part, QPoint at) {
    return TQRectContainsPoint(box.layout[part], at.x(), at.y());
}

QString ruler_tip(const Prseq& box, QPoint at) {
    const Rect& ruler = box.layout[Part::TimeDisplay];
    if (loop_grip_at(box, {at.x() - ruler.x, at.y() - ruler.y}))
        return "The loop: drag it, or one of its ends";
    return box.shift_draws_loop ? "Press: the play position. Shift and drag: a loop" : QString();
}

/// Which sound the track below the pointer has.
QString track_tip(const Prseq& box, QPoint at) {
    const Rect& list = box.layout[Part::TrackDisplay];
    const Track* track =
        track_at(box, TQ_Prseq_Trackdisplay_WhatTrack(box, at.x() - list.x, at.y() - list.y));
    return track ? QString::fromStdString(track->name) + ": " + sound_name(track->destination.text())
                 : QString();
}

QString tool_tip(const Prseq& box, QPoint at) {
    const Rect& display = box.layout[Part::UpperDisplay];
    const std::optional<MouseMode> mode = icon_mode_at(box, {at.x() - display.x, at.y() - display.y});
    if (!mode) return {};
    const MouseModeRow& row = mouse_mode_row(*mode);
    const CommandRow* command = find_command(row.name + std::string("_mode"));
    const QString key = command ? key_text(command->id) : QString();
    return key.isEmpty() ? QString(row.label) : QString("%1 (%2)").arg(row.label, key);
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
    if (is_in(box, Part::TimeDisplay, at)) return ruler_tip(box, at);
    if (is_in(box, Part::TrackDisplay, at)) return track_tip(box, at);
    return is_in(box, Part::UpperDisplay, at) ? tool_tip(box, at) : QString();
}

}  // namespace tq
