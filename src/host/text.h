// Text on one line: fonts, measuring and drawing.
#pragma once

#include <string>

#include "host/color.h"
#include "host/geometry.h"

namespace tq {

class Graphics;

/// The size is in pixels of the view, rounded to whole pixels of the screen. A family that the machine does
/// not have is stood in for by one like it.
struct JFont {
    std::string family;
    double size = 12;
    bool italic = false, bold = false;
    friend bool operator==(const JFont&, const JFont&) = default;
};

JFont jfont_create(std::string family, double size, bool italic = false, bool bold = false);

enum class HorizontalJustification { Left, Centered, Right };
enum class VerticalJustification { Top, Centered, Bottom };

/// A line of UTF-8 text laid out in a box.
struct JTextLayout {
    std::string text;
    JFont font{};
    Rect box{};
    HorizontalJustification horizontal = HorizontalJustification::Left;
    VerticalJustification vertical = VerticalJustification::Top;
    bool ellipsis = false;  ///< cut the text to the box, and show that it was cut
    Rgba color{};
};

/// The size of the whole text, whatever the box. Kept by font and text, because measuring is dear.
Size jtextlayout_measure(const std::string& text, const JFont& font);
inline Size jtextlayout_measure(const JTextLayout& layout) {
    return jtextlayout_measure(layout.text, layout.font);
}
void jtextlayout_draw(Graphics& g, const JTextLayout& layout);

}  // namespace tq
