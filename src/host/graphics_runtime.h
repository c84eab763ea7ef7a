// What drawing needs of the system, made once by the program.
#pragma once

#include <memory>

namespace tq {

/// One of these must live while anything is drawn or text is measured.
class GraphicsRuntime {
 public:
    enum class Screen { IfThere, Never };
    /// Without a display, or when none is wanted, everything works off screen.
    explicit GraphicsRuntime(Screen screen, const char* program = "sorvo");
    ~GraphicsRuntime();
    /// Whether windows can be seen.
    bool has_screen() const;

 private:
    struct Application;
    std::unique_ptr<Application> application_;
};

}  // namespace tq
