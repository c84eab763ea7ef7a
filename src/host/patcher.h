// Patchers in windows of their own: forms whose boxes are found by their scripting names.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/field.h"
#include "host/geometry.h"
#include "host/object.h"

namespace tq {

class Patcher;

/// A box with a form control, or another patcher, in it.
struct PatcherBox {
    Symbol varname;  ///< its scripting name
    Rect rect;       ///< in the patcher, pixels
    long page = -1;  ///< it is shown on this page of the window's selector; −1: on all
    bool hidden = false;
    std::unique_ptr<Field> field;
    std::unique_ptr<Patcher> patcher;

    Object* object() const;
};

/// Whoever watches it is told "free" when the user has closed its window.
class Patcher : public Object {
 public:
    explicit Patcher(Host& host);
    ~Patcher() override;

    std::string title;
    Size size;                      ///< of the window, pixels
    Point position;                 ///< of the window on the screen
    std::vector<PatcherBox> boxes;  ///< in the patcher's object order

    /// A window shows it, until the patcher goes.
    void show();
    /// Its window comes before all others.
    void front();
    bool shown() const { return shown_; }
    /// Boxes have been hidden or shown.
    void changed();
    /// What the user does: closes the window, where it was.
    void close_by_hand();

 private:
    bool shown_ = false;
};

/// Reads a patcher file: a JSON object with "size" and "boxes". None, and why, when it cannot be read.
std::unique_ptr<Patcher> fileload(Host& host, const std::string& path, std::string& fault);

/// Where a window of a size stands in the middle of the screen.
Point centered_on_display(const Host& host, Size window);

}  // namespace tq
