#include "view/event_sprites.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "host/graphics.h"
#include "view/gradient.h"

namespace tq {

namespace {

/// The pictures of many frames; thousands cost some MB.
constexpr size_t kept_sprites = 8192;
struct SpriteKey {
    Rgba fill, frame;
    bool active;
    int width, height;
    double ratio;
    friend bool operator==(const SpriteKey&, const SpriteKey&) = default;
};
struct HashOfKey {
    size_t operator()(const SpriteKey& key) const {
        size_t hash = static_cast<size_t>(key.width * 4096 + key.height) * 2 + key.active;
        for (double value :
             {key.fill.red, key.fill.green, key.fill.blue, key.frame.red, key.frame.blue, key.ratio})
            hash = hash * 31 + std::hash<double>()(value);
        return hash;
    }
};

/// The light falls from the top left; all four lines lie inside the rectangle.
void draw_bevel(Graphics& g, const Rect& r, const EventStyle& style) {
    const double right = r.x + r.width, bottom = r.y + r.height;
    jgraphics_set_source_jrgba(g, style.dark);
    jgraphics_line_draw_fast(g, {r.x, bottom - 0.5}, {right, bottom - 0.5}, 1);
    jgraphics_line_draw_fast(g, {right - 1, bottom}, {right - 1, r.y}, 2);
    jgraphics_set_source_jrgba(g, style.light);
    jgraphics_line_draw_fast(g, {r.x + 0.5, bottom}, {r.x + 0.5, r.y}, 1);
    jgraphics_line_draw_fast(g, {r.x, r.y + 0.5}, {right, r.y + 0.5}, 1);
}

void draw_outline(Graphics& g, const Rect& rect, const EventStyle& style) {
    if (style.active) return draw_bevel(g, rect, style);
    jgraphics_set_source_jrgba(g, style.frame);
    jgraphics_rectangle_draw_fast(g, rect, 1);
}

SurfaceRef make_sprite(int width, int height, const EventStyle& style, double ratio) {
    SurfaceRef surface = jgraphics_image_surface_create(width / ratio, height / ratio, ratio);
    Graphics g(*surface);
    draw_event_body(g, {0, 0, width / ratio, height / ratio}, style, true);
    return surface;
}

SurfaceRef kept_sprite(int width, int height, const EventStyle& style, double ratio) {
    static std::unordered_map<SpriteKey, SurfaceRef, HashOfKey> kept;
    if (kept.size() >= kept_sprites) kept.clear();
    SurfaceRef& surface = kept[{style.curve, style.frame, style.active, width, height, ratio}];
    if (!surface) surface = make_sprite(width, height, style, ratio);
    return surface;
}

}  // namespace

void draw_event_body(Graphics& g, const Rect& rect, const EventStyle& style, bool outline) {
    draw_gradient(g, *style.fill, rect);
    if (outline) draw_outline(g, rect, style);
}

const Surface& EventSprites::of_size(int width, int height) {
    width = std::clamp(width, 1, widest);
    OfHeight& of_height = kept_[static_cast<size_t>(height % heights)];
    if (of_height.height != height) of_height = {height, {}};
    SurfaceRef& sprite = of_height.by_width[static_cast<size_t>(width)];
    if (!sprite) sprite = kept_sprite(width, height, style_, ratio_);
    return *sprite;
}

void EventBodies::add(const Surface& sprite, int row, int left, int right, int top) {
    Row& r = rows_[static_cast<size_t>(row)];
    if (r.bodies.empty()) used_.push_back(&r);
    r.top = top;
    r.bodies.push_back({&sprite, left, right});
}

void EventBodies::draw(Graphics& g) {
    for (Row* row : used_) {
        jgraphics_image_surfaces_draw_widened(g, row->bodies, row->top);
        row->bodies.clear();
    }
    used_.clear();
}

}  // namespace tq
