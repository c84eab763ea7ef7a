// The bar under the box: what the patch around it controls.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QWidget>
#include <functional>
#include <string>

#include "app/window/division_menu.h"
#include "app/window/tap_tempo.h"
#include "instance/meter.h"

class QDoubleSpinBox;
class QLabel;
class QMenu;
class QSettings;
class QSlider;
class QToolButton;

namespace tq {

class LevelMeter;
class PositionField;

/// What the bar shows.
struct TransportState {
    bool playing = false, loop = false;
    double position = 0;  ///< ms
    double tempo = 120;   ///< beats a minute
    bool snap = false;
    Divided division = {};
    QString solo;  ///< which tracks alone sound; empty: all
};

class TransportBar : public QWidget {
 public:
    /// The position can be told in the bars of this meter.
    explicit TransportBar(const Meter& meter);
    void show_state(const TransportState& state);
    void show_status(const QString& text);
    /// What is under the pointer.
    void show_pointer(const QString& text);
    void show_console_open(bool open);
    /// There is sound: a metronome and a level, which is what `peak` says (LevelMeter).
    void show_sound(std::function<float()> peak);
    /// What was chosen in the bar, for the next time.
    void keep(QSettings& kept) const;
    void restore(const QSettings& kept);
    /// A tap of the tempo, now; from the second on, it is asked for.
    void tap();

    // What a person asks for.
    std::function<void()> play_or_stop = [] {};
    std::function<void()> go_to_start = [] {};
    std::function<void(double)> position = [](double) {};  ///< ms
    std::function<void()> loop_selection = [] {};
    std::function<void(bool)> metronome = [](bool) {};
    std::function<void()> end_solo = [] {};
    std::function<void()> leave = [] {};  ///< the keys are to go to the box again
    std::function<void(bool)> loop = [](bool) {};
    std::function<void(const std::string& message)> send = [](auto&&) {};  ///< to the box
    std::function<void(double)> tempo = [](double) {};                     ///< beats a minute
    std::function<void(double)> volume = [](double) {};                    ///< 0 to 1
    std::function<void(bool)> console = [](bool) {};
    std::function<void()> open_file = [] {};
    std::function<void(const std::string& path)> open_recent = [](auto&&) {};
    std::function<bool()> has_previous = [] { return false; };  ///< whether a document can be brought back
    std::function<void()> bring_previous_back = [] {};

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void make_transport();
    void make_tempo();
    void make_loop();
    void make_snap();
    void make_solo();
    void make_volume();
    void make_open();
    void show_tempo();
    void fill_recent();
    /// Adds a button that stays down, or one that does not.
    QToolButton* add_switch(const QString& text, const QString& name, const QString& hint);
    QToolButton* add_button(const QString& text, const QString& name, const QString& hint,
                            std::function<void()> TransportBar::*asked);

    PositionField* position_;
    QToolButton *play_, *metronome_, *loop_, *snap_, *solo_, *console_;
    Divided division_;
    QLabel* pointer_;
    QLabel* status_;
    QMenu* recent_;
    QDoubleSpinBox* tempo_;
    double tempo_shown_ = 0;
    QSlider* volume_;
    LevelMeter* level_;
    TapTempo taps_;
    QElapsedTimer tap_clock_;
};

}  // namespace tq
