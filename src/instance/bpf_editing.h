// The curve whose points are being edited.
#pragma once

#include <algorithm>
#include <vector>

#include "host/geometry.h"
#include "instance/bpf.h"

namespace tq {

/// Points have no identity of their own: which of them are selected is kept here, for the curve that it is
/// about.
struct BpfEditing {
    BpfRef bpf;                    ///< none: nothing is selected
    std::vector<size_t> selected;  ///< indices of points, ascending
    long currentpoint = -1;        ///< the point under the pointer, or −1
    bool absolutetime = false;     ///< times of points are told with their event's start
    Rect marquee;                  ///< x and width in the main display; no width: none

    bool is_selected(const Bpf& of, size_t point) const {
        return bpf.get() == &of && std::ranges::binary_search(selected, point);
    }
    bool is_current(const Bpf& of, size_t point) const {
        return bpf.get() == &of && currentpoint == static_cast<long>(point);
    }
};

}  // namespace tq
