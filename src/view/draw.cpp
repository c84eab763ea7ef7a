#include "view/draw.h"

#include "instance/prseq.h"
#include "view/layers.h"

namespace tq {

namespace {

/// A layer that is not painted now is invalidated too: it is fresh when it is painted again.
void invalidate_changed_layers(const Prseq& object) {
    if (object.unpainted.none()) return;
    for (const LayerRow& row : layer_rows())
        if (row.shows.any_of(object.unpainted)) jbox_invalidate_layer(object, row.name);
    object.unpainted = {};
}

void paint_layer(const Prseq& object, const LayerRow& row, Graphics& view) {
    const Rect place = row.place(object);
    if (auto g = jbox_start_layer(object, view, row.name, place.width, place.height)) {
        row.draw(object, *g);
        jbox_end_layer(object, row.name);
    }
    jbox_paint_layer(object, view, row.name, place.x, place.y);
}

}  // namespace

void prseq_paint(const Prseq& object, Graphics& view) { draw_display(object, view); }

void draw_display(const Prseq& object, Graphics& view) {
    invalidate_changed_layers(object);
    for (const LayerRow& row : layer_rows()) {
        if (!row.wanted(object)) continue;
        if (row.name.empty())
            row.draw(object, view);
        else
            paint_layer(object, row, view);
    }
}

}  // namespace tq
