// The script driver's lines in real time, on a window.
#pragma once

#include <QObject>
#include <QTimer>
#include <deque>
#include <string>

#include "app/patch/paint_offscreen.h"
#include "app/script/driver.h"

namespace tq {

class MainWindow;

/// Runs lines in their order, each as soon as it can: ".wait" keeps those after it waiting, and so does a
/// dialog that is open. ".size" resizes the window, ".quit" closes it.
class WindowLines : public QObject, protected Driver {
 public:
    explicit WindowLines(MainWindow& window);

 protected:
    void add(std::string line) { lines_.push_back(std::move(line)); }
    /// Runs what can be run now.
    void run_lines();
    bool idle() const { return lines_.empty() && !pause_.isActive(); }
    size_t waiting() const { return lines_.size(); }
    /// Runs one line; a ScriptFault is this one's to tell of.
    virtual void run_one(const std::string& line) = 0;
    /// Nothing is left to be run.
    virtual void finished() {}

    void wait(double ms) override;
    void resize(Size size) override;
    void paint(const std::string& file, double ratio) override;
    void quit() override;

    MainWindow& window_;

 private:
    OffscreenPainter painter_;
    QTimer pause_;
    std::deque<std::string> lines_;
};

}  // namespace tq
