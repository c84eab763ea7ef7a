// What can change about what is seen, and saying that it did.
#pragma once

#include <cstdint>
#include <initializer_list>

namespace tq {

struct Prseq;

/// What can change about what is seen; view/layers.cpp says which layers show it. Size and pixel ratio are
/// not here: a layer notices those itself.
enum class Change {
    // the view
    HorizontalView,  ///< zoom or scroll
    VerticalView,    ///< zoom or scroll
    TimelineLength,
    TimeDisplayType,
    Initialisation,
    Everything,
    // the document
    Events,  ///< events, their values and curves, and which are selected
    Tracks,  ///< the list, the active track, colours, visibility
    TrackName,
    Meter,
    Types,  ///< a track's curve and parameter types, and which are shown
    // what happens
    MouseMode,
    Cycle,
    Marquee,
    LineCursor,
    ModalDialog,
    Tiptool,
    Background,  ///< the colour behind all
    // the look or the contents of one display
    UpperDisplay,
    TimeDisplay,
    TrackDisplay,
    KeyDisplay,
    MainDisplay,
    ParameterDisplay,
    Scrollbars,
    // a paint is enough: no layer's contents
    Nothing
};

/// A set of changes.
class Changes {
 public:
    constexpr Changes() = default;
    constexpr Changes(std::initializer_list<Change> changes) {
        for (Change change : changes) add(change);
    }
    constexpr void add(Change change) { bits_ |= 1u << static_cast<unsigned>(change); }
    constexpr bool any_of(const Changes& others) const { return bits_ & others.bits_; }
    constexpr bool none() const { return bits_ == 0; }
    constexpr Changes without(const Changes& others) const {
        Changes rest;
        rest.bits_ = bits_ & ~others.bits_;
        return rest;
    }

 private:
    static_assert(static_cast<unsigned>(Change::Nothing) < 32);
    std::uint32_t bits_ = 0;
};

/// The layers that show this are drawn anew by the next paint, which is asked for.
void prseq_show(Prseq& object, Change change);

}  // namespace tq
