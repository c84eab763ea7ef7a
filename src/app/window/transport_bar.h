// The bar under the box: what the patch around it controls.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

class QDoubleSpinBox;
class QLabel;
class QMenu;
class QSlider;
class QToolButton;

namespace tq {

/// What the bar shows.
struct TransportState {
    bool playing = false, loop = false;
    double position = 0;  ///< ms
    double tempo = 120;   ///< beats a minute
};

class TransportBar : public QWidget {
 public:
    TransportBar();
    void show_state(const TransportState& state);
    void show_status(const QString& text);
    void show_console_open(bool open);

    // What a person asks for.
    std::function<void(bool)> play = [](bool) {};
    std::function<void(bool)> loop = [](bool) {};
    std::function<void(double)> tempo = [](double) {};   ///< beats a minute
    std::function<void(double)> volume = [](double) {};  ///< 0 to 1
    std::function<void(bool)> console = [](bool) {};
    std::function<void()> settings = [] {};
    std::function<void()> open_file = [] {};
    std::function<void(const std::string& path)> open_recent = [](auto&&) {};
    std::function<bool()> has_previous = [] { return false; };  ///< whether a document can be brought back
    std::function<void()> bring_previous_back = [] {};

 private:
    QWidget* make_tempo();
    QWidget* make_volume();
    void make_open();
    void fill_recent();
    QToolButton* button(const QString& text, const QString& name, const QString& hint);

    QToolButton *play_, *loop_, *console_;
    QLabel *position_, *status_;
    QMenu* recent_;
    QDoubleSpinBox* tempo_;
    QSlider* volume_;
};

/// "MM:SS.mmm" of a time in ms.
QString position_text(double ms);

}  // namespace tq
