// A pop-up menu: its lines, and what each of them does.
#pragma once

#include <functional>
#include <vector>

#include "host/geometry.h"
#include "host/popup.h"

namespace tq {

enum class Command;
struct Prseq;

class PopupMenu {
 public:
    using Action = std::function<void(Prseq&)>;

    void add(
        PopupItem item, Action action = [](Prseq&) {});
    /// A command, under the text and in the state that it has.
    void add(const Prseq& object, Command id, SurfaceRef icon = nullptr);
    void separate();
    bool empty() const { return items_.empty(); }
    /// Shows it at a point of the box; what the user chooses is left to be done.
    Action ask(Prseq& object, Point at) const;

 private:
    std::vector<PopupItem> items_;
    std::vector<Action> actions_;
};

}  // namespace tq
