// How loud it is that is being played.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace tq {

/// The peak of what is played, from -60 to 0 dB, falling evenly after it; looks only while it can be seen.
class LevelMeter : public QWidget {
 public:
    LevelMeter();
    /// The highest level, 0 to 1, since this was last asked.
    std::function<float()> peak = [] { return 0.f; };
    /// The level that is shown, in dB below full; at and under -60 nothing is.
    double shown() const { return shown_; }
    bool looking() const { return timer_.isActive(); }

 protected:
    void paintEvent(QPaintEvent*) override;
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override { timer_.stop(); }

 private:
    void look();

    QTimer timer_;
    QElapsedTimer since_;  ///< the last look
    double shown_;
};

}  // namespace tq
