#include "interaction/pointer.h"

#include <algorithm>
#include <cmath>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "view/maindisplay.h"
#include "view/tiptool.h"

namespace tq {

Pointer pointer_at(const Prseq& object, double x, double y, unsigned modifiers) {
    const MainDisplay& md = object.maindisplay;
    const double localx = std::max(x - md.rect.x, 0.), localy = std::max(y - md.rect.y, 0.);
    return {.at = {x, y},
            .ms = TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, md, localx + md.horizontalscroll),
            .pitch = TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, localy),
            .modifiers = modifiers};
}

Point dragged_to(const Pointer& press, const Pointer& to) {
    constexpr double fine = 100;
    if (!(to.modifiers & modifier_shift)) return to.at;
    return {press.at.x + (to.at.x - press.at.x) / fine, press.at.y + (to.at.y - press.at.y) / fine};
}

Snap::Snap(const Prseq& object) : Snap(object, object.snaptime) {}

Snap Snap::always(const Prseq& object) { return {object, true}; }

Snap::Snap(const Prseq& object, bool on) {
    if (!on) return;
    tenths_ = object.maindisplay.mslabelincrement / 10;
    if (divides_beats(object)) beats_.emplace(object, GridStep{}, 0);
}

double Snap::time(double ms) const {
    if (beats_) return beats_->nearest(ms);
    return tenths_ > 0 ? TQ_Prseq_Maindisplay_CalculateSnappedPositionFromMouse({}, tenths_, ms) : ms;
}

double Snap::length(double start, double ms) const {
    return beats_ ? beats_->nearest(start + ms) - start : time(ms);
}

std::optional<double> Snap::step(double start) const {
    return beats_ ? std::optional(beats_->behind(start) - start) : std::nullopt;
}

double Snap::spacing(double ms) const { return beats_ ? beats_->spacing(ms) : tenths_; }

double pitch_to_insert(const Prseq& object, const Pointer& pointer) {
    const double pitch = std::clamp(pointer.pitch, 0., Prseq::maximumpitch);
    return object.snappitch ? std::floor(pitch) : pitch;
}

void show_tiptool(Prseq& object, const Pointer& pointer, const std::string& text) {
    TQ_Prseq_Tiptool_Set(object, text, pointer.at.x, pointer.at.y, object.maindisplay.rect);
}

}  // namespace tq
