// Named off-screen layers of a box: each is drawn once, kept until it is invalidated, and composited.
#pragma once

namespace tq {

struct Layers {};

}  // namespace tq
