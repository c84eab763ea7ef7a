// The view's records: plain data, of which everything that is shown follows.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "host/color.h"
#include "host/geometry.h"

namespace tq {

/// The divisions of the box, in the order in which a point is looked up.
enum class Part : int {
    None = -1,
    TimeDisplay = 0,
    KeyDisplay = 1,
    HorScrollbar = 2,
    VertScrollbar = 3,
    MainDisplay = 4,
    ParameterDisplay = 5,
    UpperDisplay = 6,
    TrackDisplay = 7
};
inline constexpr std::size_t part_count = 8;

/// What the mouse does in the main display; interaction/mouse_modes.h has a row for each.
enum class MouseMode : int {
    Select = 0,
    Insert = 1,
    Zoom = 2,
    EditBpf = 3,
    SelectBpf = 4,
    Slice = 5,
    Glue = 6,
    Buffer = 7
};

/// The modes in which an event's curves are edited.
inline bool edits_curves(MouseMode mode) {
    return mode == MouseMode::EditBpf || mode == MouseMode::SelectBpf;
}

enum class TimeDisplayType : long { Milliseconds = 0, MinutesSeconds = 1, BarsBeats = 2 };

/// Where the parts are, relative to the box's top left corner; a part that is not shown has no width or
/// height.
struct Layout {
    std::array<Rect, part_count> parts;
    double trackdisplaywidth = 165;
    double keydisplaywidth = 40;
    double parameterdisplayheight = 80;
    double timedisplayheight = 24;  ///< follows from the time display type

    const Rect& operator[](Part part) const { return parts[static_cast<std::size_t>(part)]; }
    Rect& operator[](Part part) { return parts[static_cast<std::size_t>(part)]; }
    friend bool operator==(const Layout&, const Layout&) = default;
};

/// The piano roll. "Page" is the whole timeline by all pitch rows at the present zoom; pitch 131 is at its
/// top.
struct MainDisplay {
    Rect rect;                    ///< relative to the box
    double horizontalscroll = 0;  ///< pixels of the page left of what is visible
    double horizontalzoom = 1;    ///< page width * zoom coefficient
    double verticalscroll = 0;    ///< pixels of the page above what is visible
    double verticalzoom = 1;      ///< a row is 8 times this high
    double minimumhorizontalzoom = 0;
    double maximumhorizontalzoom = 32;
    double horizontalzoomcoefficient = 1 / (0.1 * 10000);  ///< 1 / (0.1 * timeline length in ms)
    double rowheight = 8;                                  ///< pixels
    double maximumpagesize = 32 * (0.1 * 10000);           ///< page width at the maximum zoom
    double mslabelincrement = 100;                         ///< ms from one main division line to the next
    double numberofbigbars = 1;                            ///< main divisions on the page
    double bigbarsize = 100;                               ///< pixels from one main division line to the next
    MouseMode mousemode = MouseMode::Select;
    bool marqueeactive = false;
    Rect marquee;  ///< relative to the main display
    friend bool operator==(const MainDisplay&, const MainDisplay&) = default;
};

/// The column of keys; scroll and zoom are the main display's vertical ones.
struct KeyDisplay {
    Rect rect;  ///< relative to the box
    double scroll = 0, zoom = 1;
    double blackkeyunit = 8;  ///< pixels a semitone at zoom 1
    double keylength = 40;
    double whitekeybroadness = 8 * 12. / 7;
    double blackkeybroadness = 8;
    long octavecount = 11;
    long whitekeycount = 77;
    double totalpagesize = 1056;
    double minimumzoom = 0, maximumzoom = 32;
    double zoomcoefficient = (7. / 12) / (77 * 8);
    friend bool operator==(const KeyDisplay&, const KeyDisplay&) = default;
};

/// A scrollbar with an optional zoom box. Its unity values are the state; the rest follows from them and from
/// the page sizes. Rectangles are relative to the scrollbar's part.
struct TQScrollbar {
    enum class Orientation { Horizontal = 0, Vertical = 1 };
    enum class Zoom { None = 0, AtStart = 1, AtEnd = 2 };

    Orientation orientation = Orientation::Horizontal;
    bool hasarrows = true;
    Zoom zoom = Zoom::None;

    double scrollvalue = 0;  ///< pixels of the page before what is visible
    double scrollunityvalue = 0;
    double zoomvalue = 1, minimumzoom = 0, maximumzoom = 32;
    double zoomunityvalue = 0;
    double totalpagesize = 0;      ///< pixels, at the present zoom
    double maximumpagesize = 0;    ///< pixels, at the maximum zoom
    double selectionpagesize = 0;  ///< pixels of the page that are visible

    Rect rect, scrollbox, knob, arrows, arrow0, arrow1, zoombox;
    double knobsize = 0, knoblength = 0, knobrange = 0;
    double knobposition = 0;  ///< from the scroll box's start
    bool knobexists = false;
    double zoomknobposition = 0, zoomknobminimum = 0, zoomknobmaximum = 0, zoomknobrange = 0;
    double zoomknobsize = 8;
    double zoomcurveexponent = 3;
    double thickness = 15;

    /// What a press has taken hold of, until the release.
    enum class Grab { Nothing, Arrow0, Arrow1, Knob, ZoomKnob };
    Grab grab = Grab::Nothing;
    double graboffset = 0;  ///< pixels from the start of the grabbed knob to the pointer
    friend bool operator==(const TQScrollbar&, const TQScrollbar&) = default;
};

/// Where the pointer was last.
struct Hover {
    Part part = Part::None;  ///< none after it has left the box
    Point at;                ///< in the box
};

/// The box of text beside the pointer.
struct Tiptool {
    bool visible = false;
    std::string text;  ///< lines
    Point anchor;      ///< what it stands beside, in the box
    Rect constrain;    ///< what it stays inside
};

/// Where everything is: the parts of the box, and what of the document is seen in them. It follows from the
/// box's size, the display switches, the time display type, the timeline's length, zoom and scroll;
/// view/synchronise.h brings it into step where one of these changes.
struct Geometry {
    Layout layout;
    MainDisplay maindisplay;
    KeyDisplay keydisplay;
    TQScrollbar horscrollbar, vertscrollbar;
    friend bool operator==(const Geometry&, const Geometry&) = default;
};

/// The four unity values of a view.
struct ZoomScroll {
    double horizontalzoom = 0, verticalzoom = 0, horizontalscroll = 0, verticalscroll = 0;
    friend bool operator==(const ZoomScroll&, const ZoomScroll&) = default;
};

/// A stretch of the document that a view shows.
struct Sector {
    double start = 0;  ///< ms
    double toppitch = 0;
    double duration = 0;  ///< ms
    double span = 0;      ///< semitones
    friend bool operator==(const Sector&, const Sector&) = default;
};

/// The way of an animated zoom from one sector to another.
struct ZoomAnimation {
    Sector start, target;
    long tick = 0, ticks = 0;  ///< how many ticks have passed, of how many
};

}  // namespace tq
