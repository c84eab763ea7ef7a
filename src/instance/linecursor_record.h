// The line cursor: the vertical line that marks the play position.
#pragma once

#include <memory>

namespace tq {

class Surface;

/// What the view does while the cursor moves.
enum class FollowMode { PageJump = 0, MiddleStay = 1 };

struct LineCursor {
    double position = 0;  ///< ms
    bool follow = true;
    FollowMode followmode = FollowMode::PageJump;
    std::shared_ptr<Surface> line;  ///< the line's picture, one pixel high
};

}  // namespace tq
