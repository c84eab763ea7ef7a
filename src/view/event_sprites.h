// Pictures of events' bodies, drawn once and put down many times.
#pragma once

#include <array>
#include <vector>

#include "instance/event_look.h"
#include "view/event_style.h"

namespace tq {

class Graphics;
struct Rect;

/// The bodies of one style. What is narrow has a picture of its own; wider ones repeat the middle of the
/// widest.
class EventSprites {
 public:
    EventSprites(const EventStyle& style, double ratio) : style_(style), ratio_(ratio) {}
    /// The picture of a body; all in pixels of the screen.
    const Surface& of_size(int width, int height);

 private:
    static constexpr int widest = 24;  ///< edges are not as thick as half of it at any ratio
    static constexpr int heights = 2;  ///< rows of one view differ by a pixel of the screen

    struct OfHeight {
        int height = -1;
        std::array<SurfaceRef, widest + 1> by_width;
    };

    const EventStyle& style_;
    double ratio_;
    std::array<OfHeight, heights> kept_;
};

/// Bodies that are drawn together, row by row, as long as nothing is between them.
class EventBodies {
 public:
    /// All in pixels of the screen.
    void add(const Surface& sprite, int row, int left, int right, int top);
    void draw(Graphics& g);

 private:
    struct Row {
        int top = 0;
        std::vector<WidenedSurface> bodies;
    };
    std::array<Row, EventLooks::row_count> rows_;
    std::vector<Row*> used_;  ///< those with bodies
};

/// Draws the body of an event: its gradient and its outline.
void draw_event_body(Graphics& g, const Rect& rect, const EventStyle& style, bool outline);

}  // namespace tq
