#include "host/layers.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "host/box.h"
#include "host/graphics.h"
#include "host/image.h"
#include "host/round.h"

namespace tq {

std::optional<Graphics> jbox_start_layer(const Box& box, double ratio, Symbol name, double width,
                                         double height) {
    Layer& layer = box.layers.by_name[name];
    if (!(width > 0 && height > 0)) {
        layer = {};
        return {};
    }
    bool fits =
        layer.surface && layer.surface->size() == Size{width, height} && layer.surface->ratio() == ratio;
    if (fits && layer.valid && !layer.scrolled) return {};
    if (fits) {
        surface_clear(*layer.surface);
    } else {
        layer.surface = jgraphics_image_surface_create(width, height, ratio);
    }
    layer.valid = false;
    return Graphics(*layer.surface);
}

void jbox_end_layer(const Box& box, Symbol name, std::optional<LayerView> view) {
    Layer& layer = box.layers.by_name[name];
    layer.valid = true;
    layer.scrolled = false;
    layer.view = std::move(view);
    ++layer.version;
    std::vector<Symbol>& drawn = box.layers.drawn;
    if (std::ranges::find(drawn, name) == drawn.end()) drawn.push_back(name);
}

void jbox_paint_layer(const Box& box, Graphics& view, Symbol name, double x, double y) {
    const Layer& layer = box.layers.by_name[name];
    if (!layer.surface) return;
    Size size = layer.surface->size();
    jgraphics_image_surface_draw(view, *layer.surface, {0, 0, size.width, size.height},
                                 {x, y, size.width, size.height});
}

void jbox_invalidate_layer(const Box& box, Symbol name) {
    Layer& layer = box.layers.by_name[name];
    layer.valid = layer.scrolled = false;
}

void jbox_scrolled_layer(const Box& box, Symbol name) {
    Layer& layer = box.layers.by_name[name];
    layer.scrolled = layer.valid;
}

std::optional<std::vector<Rect>> jbox_scroll_layer(const Box& box, double ratio, Symbol name, Size size,
                                                   const LayerView& view) {
    Layer& layer = box.layers.by_name[name];
    auto whole = [ratio](double value) { return value * ratio == std::round(value * ratio); };
    const bool movable = whole(size.width) && whole(size.height) && layer.valid && layer.scrolled &&
                         layer.view && layer.view->xzoom == view.xzoom && layer.view->yzoom == view.yzoom &&
                         layer.surface->size() == size && layer.surface->ratio() == ratio;
    if (!movable) return {};
    const double dx = layer.view->xscroll - view.xscroll, dy = layer.view->yscroll - view.yscroll;
    if (!(std::abs(dx) < size.width / 2 && std::abs(dy) < size.height / 2)) return {};
    surface_move(*layer.surface, dx, dy);
    std::vector<Rect> places;
    if (dx != 0) places.push_back({dx > 0 ? 0 : size.width + dx, 0, std::abs(dx), size.height});
    if (dy != 0) places.push_back({0, dy > 0 ? 0 : size.height + dy, size.width, std::abs(dy)});
    for (const Rect& rect : layer.view->standing)
        places.push_back({rect.x + dx, rect.y + dy, rect.width, rect.height});
    places.insert(places.end(), view.standing.begin(), view.standing.end());
    return places;
}

Graphics jbox_start_place(const Box& box, Symbol name, const Rect& place) {
    Graphics g(*box.layers.by_name[name].surface);
    jgraphics_clip(g, place);
    jgraphics_rectangle_clear(g, place);
    return g;
}

void BoxPicture::resize(Size size, double ratio) {
    if (surface_ && surface_->size() == size && surface_->ratio() == ratio) return;
    surface_ = jgraphics_image_surface_create(size.width, size.height, ratio);
    shown_.clear();
}

std::vector<BoxPicture::Shown> BoxPicture::placed(const Box& box, std::span<const PlacedLayer> layers) const {
    const double ratio = surface_->ratio();
    auto near = [ratio](double value) { return jgraphics_round(value * ratio) / ratio; };
    auto up = [ratio](double value) { return std::ceil(value * ratio - 1e-6) / ratio; };
    std::vector<Shown> shown;
    for (const PlacedLayer& layer : layers) {
        const Layer& kept = box.layers.by_name[layer.name];
        if (!kept.surface) continue;
        const Size size = kept.surface->size();
        shown.push_back({layer.name,
                         kept.version,
                         {near(layer.at.x), near(layer.at.y), up(size.width), up(size.height)}});
    }
    return shown;
}

/// Where a layer came, went, moved or was drawn anew.
std::vector<Rect> BoxPicture::differing_from(const std::vector<Shown>& now) const {
    if (shown_.empty()) return {{0, 0, surface_->size().width, surface_->size().height}};
    std::vector<Rect> places;
    auto add_missing = [&places](const std::vector<Shown>& these, const std::vector<Shown>& those) {
        for (const Shown& shown : these)
            if (std::ranges::find(those, shown) == those.end()) places.push_back(shown.place);
    };
    add_missing(shown_, now);
    add_missing(now, shown_);
    std::ranges::sort(places, {}, [](const Rect& r) { return std::tuple(r.x, r.y, r.width, r.height); });
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

std::vector<Rect> BoxPicture::show(const Box& box, std::span<const PlacedLayer> layers) {
    if (std::exchange(box_, &box) != &box) shown_.clear();
    std::vector<Shown> now = placed(box, layers);
    const std::vector<Rect> places = differing_from(now);
    for (const Rect& place : places) {
        Graphics view(*surface_);
        jgraphics_clip(view, place);
        jgraphics_rectangle_clear(view, place);
        for (const PlacedLayer& layer : layers)
            jbox_paint_layer(box, view, layer.name, layer.at.x, layer.at.y);
    }
    shown_ = std::move(now);
    return places;
}

}  // namespace tq
