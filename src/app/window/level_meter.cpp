#include "app/window/level_meter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tq {

namespace {

constexpr int meter_height = 4;
constexpr int frame_ms = 33, silent_frame_ms = 100;
constexpr double lowest = -60, fall = 30;  // dB, dB a second

/// From which level on a colour stands, in dB.
constexpr struct {
    double from;
    Qt::GlobalColor color;
} zones[] = {{lowest, Qt::darkGreen}, {-12, Qt::darkYellow}, {-2, Qt::red}};

}  // namespace

LevelMeter::LevelMeter() : shown_(lowest) {
    setObjectName("level");
    setFixedHeight(meter_height);
    setToolTip("Level of what is played");
    connect(&timer_, &QTimer::timeout, this, [this] { look(); });
}

void LevelMeter::showEvent(QShowEvent*) {
    peak();  // what was played meanwhile
    since_.start();
    timer_.start(silent_frame_ms);
}

void LevelMeter::look() {
    const double before = shown_;
    const double heard = 20 * std::log10(std::max(1e-6, double(peak())));
    shown_ = std::max({lowest, heard, shown_ - fall * static_cast<double>(since_.restart()) / 1000});
    timer_.setInterval(shown_ > lowest ? frame_ms : silent_frame_ms);
    if (shown_ != before) update();
}

void LevelMeter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    const auto place = [this](double level) { return (std::min(level, 0.0) - lowest) / -lowest * width(); };
    for (size_t i = 0; i < std::size(zones); ++i) {
        const double end = i + 1 < std::size(zones) ? std::min(shown_, zones[i + 1].from) : shown_;
        if (end <= zones[i].from) break;
        painter.fillRect(QRectF(place(zones[i].from), 0, place(end) - place(zones[i].from), height()),
                         zones[i].color);
    }
}

}  // namespace tq
