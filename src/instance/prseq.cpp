#include "instance/prseq.h"

#include "host/host.h"

namespace tq {

namespace {

constexpr int event_target_flags =
    TIME_FLAGS_TICKSONLY | TIME_FLAGS_USECLOCK | TIME_FLAGS_PERMANENT | TIME_FLAGS_POSITIVE;
constexpr Size smallest_box{200, 240};

}  // namespace

Prseq::Prseq(Host& host, const Class& prseq_class, const PrseqCallbacks& c)
    : Box(host, prseq_class),
      callbacks(c),
      eventcaptureclock(host.scheduler, *this, [this] { callbacks.eventcapture(*this); }),
      transport(&itm_getnamed(host, {})),
      runningtime(
          *transport, *this, [this] { callbacks.runningtime(*this); }, TIME_FLAGS_USECLOCK),
      eventtargettime(
          *transport, *this, [this] { callbacks.eventcatched(*this); }, event_target_flags),
      loopendtargettime(
          *transport, *this, [this] { callbacks.loopendcatched(*this); },
          event_target_flags | TIME_FLAGS_LOCATION),
      zoomclock(host.scheduler, *this, [this] { callbacks.zoomstep(*this); }) {
    minimum_size = smallest_box;
    object_attach_byptr(*this, *transport);
}

}  // namespace tq
