#include "view/draw.h"

#include "instance/prseq.h"
#include "view/layers.h"

namespace tq {

namespace {

/// A layer that is not painted now is invalidated too: it is fresh when it is painted again.
void invalidate_changed_layers(const Prseq& object) {
    if (object.unpainted.none()) return;
    const Changes more_than_scroll = object.unpainted.without({Change::HorizontalView, Change::VerticalView});
    for (const LayerRow& row : layer_rows()) {
        if (row.shows.any_of(row.view ? more_than_scroll : object.unpainted))
            jbox_invalidate_layer(object, row.name);
        else if (row.shows.any_of(object.unpainted))
            jbox_scrolled_layer(object, row.name);
    }
    object.unpainted = {};
}

void draw_layer(const Prseq& object, const LayerRow& row, const Rect& place, double ratio) {
    std::optional<LayerView> view;
    if (row.view) view = row.view(object, ratio);
    bool movable = view.has_value();
    if (const auto places =
            view ? jbox_scroll_layer(object, ratio, row.name, {place.width, place.height}, *view)
                 : std::nullopt) {
        for (const Rect& rect : *places) {
            Graphics g = jbox_start_place(object, row.name, rect);
            row.draw(object, g);
            movable &= g.moves_exactly();
        }
    } else if (auto g = jbox_start_layer(object, ratio, row.name, place.width, place.height)) {
        row.draw(object, *g);
        movable &= g->moves_exactly();
    } else {
        return;
    }
    jbox_end_layer(object, row.name, movable ? view : std::nullopt);
}

/// Draws the layers that do not hold any more, and says which are to be seen, and where.
std::vector<PlacedLayer> draw_layers(const Prseq& object, double ratio) {
    invalidate_changed_layers(object);
    std::vector<PlacedLayer> layers;
    for (const LayerRow& row : layer_rows()) {
        if (!row.wanted(object)) continue;
        const Rect place = row.place(object);
        draw_layer(object, row, place, ratio);
        layers.push_back({row.name, {place.x, place.y}});
    }
    return layers;
}

}  // namespace

void prseq_paint(const Prseq& object, Graphics& view) { draw_display(object, view); }

void draw_display(const Prseq& object, Graphics& view) {
    for (const PlacedLayer& layer : draw_layers(object, view.ratio()))
        jbox_paint_layer(object, view, layer.name, layer.at.x, layer.at.y);
}

std::vector<Rect> prseq_paint(const Prseq& object, BoxPicture& picture, double ratio) {
    picture.resize({object.width, object.height}, ratio);
    return picture.show(object, draw_layers(object, ratio));
}

}  // namespace tq
