// What is painted of the curve editor: the dark cover, the edited event on it, the points and the marquee.
#pragma once

#include "host/graphics.h"
#include "instance/bpf_editing.h"
#include "view/eventview.h"

namespace tq {

struct Event;

/// The handle of a curve's point, in the main display.
Rect bpf_point_handle(const EventView& view, const Event& event, const BpfPoint& point);
/// The points of the event's active curve that are in view.
void draw_bpf_points(Graphics& g, const EventView& view, const Event& event, const BpfEditing& editing);
/// What has been marked of the edited event.
void TQ_Prseq_Events_DrawBpfMarquee(Graphics& g, const EventView& view, const Event& event,
                                    const BpfEditing& editing);

}  // namespace tq
