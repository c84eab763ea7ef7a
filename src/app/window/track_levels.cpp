#include "app/window/track_levels.h"

#include <fmt/format.h>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <cmath>

#include "app/midi/controllers.h"
#include "app/window/window_state.h"
#include "edits/song_edits.h"
#include "instance/prseq.h"
#include "model/bpfs.h"
#include "model/tracks.h"

namespace tq {

namespace {

constexpr int loudest = 127, slider_width = 200;

struct LevelRow {
    int controller;
    const char* hint;
};
constexpr LevelRow levels[] = {{Volume, "How loud the track is: 100 is usual"},
                               {Pan, "0 is left, 64 the middle, 127 right"},
                               {Expression, "How loud it is of its volume: 127 is all"}};

/// In the controller's steps, of whatever range the curves are.
int level_of(const Track& track, const std::string& name, int initial) {
    const BpfType* type = TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, gensym(name));
    const double range = type ? type->maximum - type->minimum : 0;
    if (range == 0) return initial;
    return static_cast<int>(std::lround((curve_level(track, *type) - type->minimum) / range * loudest));
}

/// The same, the other way round.
double level_from(const Track& track, const std::string& name, int value) {
    const BpfType* type = TQ_Prseq_Tracks_GetBpfTypeWithGivenName(track, gensym(name));
    return type ? type->minimum + (type->maximum - type->minimum) * value / loudest : value;
}

/// Behind the number of a pan.
QString side_of(int pan) {
    constexpr int middle = 64;
    return pan == middle ? " middle" : pan < middle ? " left" : " right";
}

}  // namespace

TrackLevels::TrackLevels(QWidget& window, const Prseq& box, std::function<void(const std::string&)> send)
    : QDialog(&window), box_(box), send_(std::move(send)), track_(new QLabel) {
    setObjectName("track levels");
    setWindowTitle("Volume and Pan");
    auto* grid = new QGridLayout(this);
    grid->addWidget(track_, 0, 0, 1, 3);
    for (const LevelRow& row : levels) {
        add_row(row.controller);
        rows_.back().slider->setToolTip(row.hint);
    }
    auto* hint = new QLabel(
        "All curves of these names on the track move together; notes that are played next\n"
        "sound so. What is drawn in them keeps its shape.");
    hint->setEnabled(false);
    grid->addWidget(hint, grid->rowCount(), 0, 1, 3);
    keep_place(*this, "levels");
}

void TrackLevels::add_row(int controller) {
    const Row row{controller_name(controller), controller_initial(controller), new QSlider(Qt::Horizontal),
                  new QSpinBox};
    const QString name = QString::fromStdString(row.name);
    if (controller == Pan)
        connect(row.number, &QSpinBox::textChanged, row.number,
                [number = row.number] { number->setSuffix(side_of(number->value())); });
    row.slider->setRange(0, loudest);
    row.slider->setMinimumWidth(slider_width);
    row.slider->setObjectName(name);
    row.number->setRange(0, loudest);
    row.number->setKeyboardTracking(false);
    row.number->setObjectName(name + " number");
    auto* grid = static_cast<QGridLayout*>(layout());
    const int line = grid->rowCount();
    auto* label = new QLabel(name);
    label->setBuddy(row.slider);
    grid->addWidget(label, line, 0);
    grid->addWidget(row.slider, line, 1);
    grid->addWidget(row.number, line, 2);
    const auto changed = [this, index = rows_.size()](int value) { ask(rows_[index], value); };
    connect(row.slider, &QSlider::valueChanged, this, changed);
    connect(row.number, &QSpinBox::valueChanged, this, changed);
    rows_.push_back(row);
}

void TrackLevels::ask(const Row& row, int value) {
    const Track* track = track_at(box_, box_.activetrack);
    if (track) send_(fmt::format("track_level \"{}\" {}", row.name, level_from(*track, row.name, value)));
}

void TrackLevels::follow() {
    if (!isVisible()) return;
    const Track* track = track_at(box_, box_.activetrack);
    setEnabled(track);
    track_->setText(track ? "Track: <b>" + QString::fromStdString(track->name).toHtmlEscaped() + "</b>"
                          : QString("No track"));
    for (const Row& row : rows_) {
        const int level = track ? level_of(*track, row.name, row.initial) : row.initial;
        const QSignalBlocker quiet(row.slider), quiet_number(row.number);
        row.slider->setValue(level);
        row.number->setValue(level);
    }
}

}  // namespace tq
