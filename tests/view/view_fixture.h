// A box that is driven by messages and painted off screen.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/patch/session.h"
#include "host/graphics.h"
#include "host/image.h"
#include "view/draw.h"

namespace tq {

struct ViewTest : testing::Test, SessionListener {
    Session session;
    Prseq& box = session.box();
    std::vector<std::string> said;  ///< what left outlet 3

    ViewTest() {
        session.listen(*this);
        send("zoom_animation 0");
    }
    void outlet(int outlet, Symbol selector, AtomSpan atoms) override {
        if (outlet == OutletSystemInfo) said.push_back(selector.text() + " " + atom_gettext(atoms));
    }
    template <typename... Messages>
    void send(const Messages&... messages) {
        (session.send(messages), ...);
    }
    /// Sends them, and paints what has become of it.
    void resize(double width, double height) {
        jbox_set_size(box, {width, height});
        paint();
    }
    /// Sends messages, or marks what has changed, and paints what has become of it.
    template <typename... Messages>
    void see(const Messages&... messages) {
        send(messages...);
        paint();
    }
    void see(Change what) {
        prseq_show(box, what);
        paint();
    }
    SurfaceRef paint(double ratio = 1) {
        picture = jgraphics_image_surface_create(box.width, box.height, ratio);
        Graphics g(*picture);
        prseq_paint(box, g);
        return picture;
    }
    /// The names of the layers that a paint draws anew.
    std::string layers_painted() {
        box.layers.drawn.clear();
        paint();
        std::string names;
        for (Symbol name : box.layers.drawn) names += (names.empty() ? "" : " ") + name.text();
        return names;
    }
    /// A pixel of the last picture (of ratio 1), 0xRRGGBB.
    unsigned pixel(double x, double y) const {
        return surface_pixel(*picture, static_cast<int>(x), static_cast<int>(y)) & 0xffffff;
    }
    SurfaceRef picture;
};

}  // namespace tq
