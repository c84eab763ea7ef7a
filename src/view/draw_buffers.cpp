#include "view/draw_buffers.h"

#include <algorithm>

#include "host/buffer.h"
#include "instance/prseq.h"
#include "view/buffer_shape.h"
#include "view/gradient.h"

namespace tq {

namespace {

constexpr long overview_width = 4000, overview_height = 512;
constexpr double arrow_rowheight = 8, two_arrows_rowheight = 20, arrow_margin = 6, arrow_length = 10;
constexpr double end_line_width = 0.5;

/// The lowest and the highest sample of a channel in some frames, 0 among them.
std::pair<float, float> extremes(const Sound& sound, long channel, long from, long to) {
    float low = 0, high = 0;
    for (long i = from; i < to; ++i) {
        const float sample = std::clamp(sound.frame(i)[channel], -1.f, 1.f);
        low = std::min(low, sample);
        high = std::max(high, sample);
    }
    return {low, high};
}

const Surface* overview_image(const BufferOverview& overview) {
    if (!overview.image && overview.buffer)
        overview.image = TQ_Prseq_Buffer_MakeSurfaceFromBuffer(*overview.buffer->use());
    return overview.image.get();
}

void TQ_Prseq_Buffer_DrawBufferStartArrow(Graphics& g, double x, double y) {
    jgraphics_line_draw_fast(g, {x, y}, {x + 6, y - 3}, 1);
    jgraphics_line_draw_fast(g, {x, y}, {x + 10, y}, 1);
    jgraphics_line_draw_fast(g, {x, y}, {x + 6, y + 3}, 1);
}

void TQ_Prseq_Buffer_DrawBufferEndArrow(Graphics& g, double x, double y) {
    jgraphics_line_draw_fast(g, {x + 4, y - 3}, {x + 10, y}, 1);
    jgraphics_line_draw_fast(g, {x, y}, {x + 10, y}, 1);
    jgraphics_line_draw_fast(g, {x + 4, y + 3}, {x + 10, y}, 1);
}

/// One arrow in the middle of a low event, one near each edge of a high one, none in a very low one.
template <typename Draw>
void draw_arrows(Graphics& g, double x, const Rect& rect, Draw draw) {
    if (rect.height >= two_arrows_rowheight) {
        draw(g, x, rect.y + arrow_margin);
        draw(g, x, rect.y + rect.height - arrow_margin);
    } else if (rect.height >= arrow_rowheight) {
        draw(g, x, rect.y + rect.height / 2);
    }
}

/// A dark line and a light one beside it.
void draw_range_end(Graphics& g, const EventView& view, double x, const Rect& rect) {
    const double beside = std::max(end_line_width, 1 / view.ratio);
    jgraphics_set_source_jrgba(g, grey(0.2, 0.8));
    jgraphics_line_draw_fast(g, {x, rect.y}, {x, rect.y + rect.height}, end_line_width);
    jgraphics_set_source_jrgba(g, grey(0.9, 0.8));
    jgraphics_line_draw_fast(g, {x + beside, rect.y}, {x + beside, rect.y + rect.height}, end_line_width);
}

}  // namespace

SurfaceRef TQ_Prseq_Buffer_MakeSurfaceFromBuffer(const Sound& sound) {
    const long frames = sound.frames();
    if (frames == 0) return nullptr;
    SurfaceRef surface = jgraphics_image_surface_create(overview_width, overview_height);
    Graphics g(*surface);
    jgraphics_set_source_jrgba(g, grey(0));
    const double lane = static_cast<double>(overview_height) / static_cast<double>(sound.channels);
    for (long channel = 0; channel < sound.channels; ++channel) {
        const double bottom = static_cast<double>(channel + 1) * lane;
        jgraphics_line_draw_fast(g, {0, bottom - lane / 2}, {overview_width, bottom - lane / 2}, 1);
        for (long x = 0; x < overview_width; ++x) {
            const auto [low, high] =
                extremes(sound, channel, x * frames / overview_width, (x + 1) * frames / overview_width);
            const double middle = static_cast<double>(x) + 0.5;
            jgraphics_line_draw_fast(g, {middle, bottom - (low + 1) * lane / 2},
                                     {middle, bottom - (high + 1) * lane / 2}, 1);
        }
    }
    return surface;
}

void TQ_Prseq_Buffer_DrawBuffer(const Prseq& object, Graphics& g, const EventView& view,
                                const EventShape& shape, bool active_track) {
    const BufferOverview* overview = object.buffers.find(shape.event->link().name);
    const Surface* image = overview ? overview_image(*overview) : nullptr;
    const Rect& rect = shape.rect;
    const std::optional<BufferShape> buffer = build_buffer_shape(view, *shape.event, rect);
    if (!image || !buffer) return;
    if (const std::optional<BufferShape> part = visible_part(view, *buffer)) {
        const Rect& from = part->source;
        jgraphics_image_surface_draw(
            g, *image, {from.x * overview_width, 0, from.width * overview_width, overview_height},
            part->destination);
    }
    jgraphics_set_source_jrgba(g, grey(0.2, active_track ? 1 : 0.3));
    if (buffer->start_arrow) draw_arrows(g, rect.x + 1, rect, TQ_Prseq_Buffer_DrawBufferStartArrow);
    if (buffer->end_arrow)
        draw_arrows(g, buffer->end_x() - arrow_length - 1, rect, TQ_Prseq_Buffer_DrawBufferEndArrow);
    if (buffer->range_end) draw_range_end(g, view, buffer->end_x(), rect);
}

}  // namespace tq
