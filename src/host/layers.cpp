#include "host/layers.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/box.h"
#include "host/graphics.h"
#include "host/image.h"

namespace tq {

std::optional<Graphics> jbox_start_layer(const Box& box, const Graphics& view, Symbol name, double width,
                                         double height) {
    Layer& layer = box.layers.by_name[name];
    if (!(width > 0 && height > 0)) {
        layer = {};
        return {};
    }
    bool fits = layer.surface && layer.surface->size() == Size{width, height} &&
                layer.surface->ratio() == view.ratio();
    if (fits && layer.valid) return {};
    if (fits) {
        surface_clear(*layer.surface);
    } else {
        layer.surface = jgraphics_image_surface_create(width, height, view.ratio());
    }
    layer.valid = false;
    return Graphics(*layer.surface);
}

void jbox_end_layer(const Box& box, Symbol name) {
    box.layers.by_name[name].valid = true;
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

void jbox_invalidate_layer(const Box& box, Symbol name) { box.layers.by_name[name].valid = false; }

}  // namespace tq
