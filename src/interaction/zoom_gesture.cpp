#include "interaction/zoom_gesture.h"

#include <cmath>

#include "host/modifiers.h"
#include "instance/prseq.h"
#include "interaction/marquee.h"
#include "view/maindisplay.h"
#include "view/sector.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

/// What lies under the marquee.
Sector marked_sector(const Prseq& object) {
    const MainDisplay& md = object.maindisplay;
    const Rect& marquee = md.marquee;
    const auto time = [&](double x) {
        return TQ_Prseq_Maindisplay_CalculatePositionFromMouse(object, md, x + md.horizontalscroll);
    };
    const auto pitch = [&](double y) { return TQ_Prseq_Maindisplay_CalculatePitchFromMouse(md, y); };
    return TQ_Prseq_Zoom_MakeSector(time(marquee.x), time(marquee.x + marquee.width), pitch(marquee.y),
                                    pitch(marquee.y + marquee.height));
}

/// A hand that trembles while it clicks does not drag.
bool far_apart(double width, double height) {
    constexpr double tremble = 3;  // pixels
    return std::abs(width) >= tremble || std::abs(height) >= tremble;
}

class ZoomGesture final : public Gesture {
 public:
    explicit ZoomGesture(const Pointer& press) : press_(press) {}
    bool edits() const override { return false; }

    void step(Prseq& object, const Pointer& to) override {
        dragged_ = dragged_ || far_apart(to.at.x - press_.at.x, to.at.y - press_.at.y);
        if (dragged_ && !(to.modifiers & modifier_option))
            TQ_Prseq_Maindisplay_SetMarqueeRect(object, press_, to);
    }

    void release(Prseq& object, const Pointer& at) override {
        const Rect marquee = object.maindisplay.marquee;
        const bool option = at.modifiers & modifier_option, marked = object.maindisplay.marqueeactive;
        commit(object);
        if (!dragged_)
            click(object, at, option ? TQ_Prseq_Zoom_ZoomOutCentered : TQ_Prseq_Zoom_ZoomInCentered);
        else if (marked && !option && far_apart(marquee.width, marquee.height))
            zoom_to(object, marked_sector(object));
    }

    /// Whatever else ends it zooms nowhere.
    void commit(Prseq& object) override {
        if (object.maindisplay.marqueeactive) close_marquee(object);
    }
    void rollback(Prseq& object) override { commit(object); }

 private:
    static void click(Prseq& object, const Pointer& at, void (*zoom)(Prseq&, double, double)) {
        const MainDisplay& md = object.maindisplay;
        zoom(object, at.at.x - md.rect.x + md.horizontalscroll, at.at.y - md.rect.y);
    }

    Pointer press_;
    bool dragged_ = false;
};

}  // namespace

std::unique_ptr<Gesture> zoom_gesture(const Pointer& press) { return std::make_unique<ZoomGesture>(press); }

}  // namespace tq
