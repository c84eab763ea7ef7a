#include "app/window/transport_bar.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/window/level_meter.h"
#include "app/window/position_field.h"
#include "app/window/recent_menu.h"

namespace tq {

namespace {

constexpr double slowest = 1, fastest = 10000;  // beats a minute
constexpr int full_volume = 100, volume_width = 80;

}  // namespace

TransportBar::TransportBar(const Meter& meter) : position_(new PositionField(meter)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    row->setSpacing(4);
    make_transport();
    make_tempo();
    make_loop();
    make_snap();
    make_volume();
    make_solo();
    pointer_ = new QLabel;
    pointer_->setObjectName("pointer");
    status_ = new QLabel;
    for (QLabel* text : {pointer_, status_}) {  // what there is room for
        text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        row->addWidget(text, 1);
    }
    pointer_->hide();
    make_open();
    console_ = add_switch("Console", "console", "Messages to and from the box (Ctrl+K)");
    connect(console_, &QToolButton::clicked, this, [this](bool on) { console(on); });
    tap_clock_.start();
}

QToolButton* TransportBar::add_switch(const QString& text, const QString& name, const QString& hint) {
    auto* made = new QToolButton;
    made->setText(text);
    made->setObjectName(name);
    made->setToolTip(hint);
    made->setCheckable(true);
    made->setFocusPolicy(Qt::NoFocus);
    layout()->addWidget(made);
    return made;
}

QToolButton* TransportBar::add_button(const QString& text, const QString& name, const QString& hint,
                                      std::function<void()> TransportBar::*asked) {
    QToolButton* made = add_switch(text, name, hint);
    made->setCheckable(false);
    connect(made, &QToolButton::clicked, this, [this, asked] { (this->*asked)(); });
    return made;
}

void TransportBar::make_transport() {
    QToolButton* start =
        add_button("Start", "go to start", "Go to the start (Home)", &TransportBar::go_to_start);
    start->setIcon(style()->standardIcon(QStyle::SP_MediaSkipBackward));
    play_ = add_switch("Play", "play", "Start or stop (Space); at the end, from the start");
    connect(play_, &QToolButton::clicked, this, [this] { play_or_stop(); });
    layout()->addWidget(position_);
    position_->moved = [this](double ms) { position(ms); };
    position_->line().installEventFilter(this);
}

void TransportBar::make_tempo() {
    tempo_ = new QDoubleSpinBox;
    tempo_->setObjectName("tempo");
    tempo_->setRange(slowest, fastest);
    tempo_->setDecimals(1);
    tempo_->setSuffix(" bpm");
    tempo_->setKeyboardTracking(false);
    tempo_->setToolTip(
        "Tempo of the bars, the metronome and MIDI files.\n"
        "Events keep their places in the bars, as long as Grid > Events Follow the Tempo is on.");
    tempo_->installEventFilter(this);
    tempo_->findChild<QLineEdit*>()->installEventFilter(this);
    connect(tempo_, &QDoubleSpinBox::valueChanged, this, [this](double bpm) { tempo(bpm); });
    layout()->addWidget(tempo_);
    QToolButton* tapped = add_switch("Tap", "tap", "Tap the tempo (T)");
    tapped->setCheckable(false);
    connect(tapped, &QToolButton::pressed, this, [this] { tap(); });
    metronome_ = add_switch("Click", "metronome", {});
    metronome_->setEnabled(false);
    metronome_->setToolTip("A click on each beat needs an audio device, and none could be opened");
    connect(metronome_, &QToolButton::clicked, this, [this](bool on) { metronome(on); });
}

void TransportBar::make_loop() {
    loop_ = add_switch("Loop", "loop", "Play the loop range over and over");
    connect(loop_, &QToolButton::clicked, this, [this](bool on) { loop(on); });
    add_button("Sel.", "loop selection", "Loop the selected events (Ctrl+L)", &TransportBar::loop_selection);
}

void TransportBar::make_snap() {
    snap_ = add_switch("Snap", "snap", "Whether times snap, and to what (N)");
    connect(snap_, &QToolButton::clicked, this, [this](bool on) { send(on ? "snaptime 1" : "snaptime 0"); });
    auto* menu = new QMenu(snap_);
    snap_->setMenu(menu);
    snap_->setPopupMode(QToolButton::MenuButtonPopup);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        fill_division_menu(*menu, division_, [this](const std::string& message) {
            send(message);
            send("snaptime 1");
        });
    });
}

/// Only seen while tracks are solo, so that silence is explained.
void TransportBar::make_solo() {
    solo_ = add_button("Solo", "solo", "Only these tracks sound; a click lets all sound again",
                       &TransportBar::end_solo);
    solo_->hide();
}

void TransportBar::make_volume() {
    volume_ = new QSlider(Qt::Horizontal);
    volume_->setRange(0, full_volume);
    volume_->setValue(full_volume);
    volume_->setFixedWidth(volume_width);
    volume_->setFocusPolicy(Qt::NoFocus);
    volume_->setToolTip("Volume of the synthesiser");
    connect(volume_, &QSlider::valueChanged, this,
            [this](int value) { volume(double(value) / full_volume); });
    level_ = new LevelMeter;
    level_->hide();
    auto* sound = new QVBoxLayout;
    sound->setSpacing(1);
    sound->addWidget(volume_);
    sound->addWidget(level_);
    static_cast<QHBoxLayout*>(layout())->addLayout(sound);
}

void TransportBar::show_sound(std::function<float()> peak) {
    level_->peak = std::move(peak);
    level_->show();
    metronome_->setEnabled(true);
    metronome_->setToolTip("A click on each beat of the document's bars; it is only heard, never sent");
}

void TransportBar::keep(QSettings& kept) const {
    kept.setValue("bar/position", static_cast<int>(position_->face()));
    kept.setValue("bar/volume", volume_->value());
    kept.setValue("bar/metronome", metronome_->isChecked());
}

void TransportBar::restore(const QSettings& kept) {
    const int face = kept.value("bar/position", static_cast<int>(TimeFace::BarsBeats)).toInt();
    if (face >= 0 && face <= static_cast<int>(TimeFace::BarsBeats))
        position_->show_face(static_cast<TimeFace>(face));
    volume_->setValue(kept.value("bar/volume", full_volume).toInt());
    if (metronome_->isEnabled() && kept.value("bar/metronome").toBool()) metronome_->click();
}

void TransportBar::tap() {
    if (const std::optional<double> bpm = taps_.tap(static_cast<double>(tap_clock_.elapsed())))
        tempo(std::clamp(*bpm, slowest, fastest));
}

/// Return says what was typed, Escape takes it back; the keys go to the box again after either.
bool TransportBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick && watched == tempo_->findChild<QLineEdit*>()) {
        tempo_->selectAll();
        return true;
    }
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        position_->take_back();
        show_tempo();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        tempo_->interpretText();
    } else {
        return QWidget::eventFilter(watched, event);
    }
    leave();
    return true;
}

void TransportBar::make_open() {
    QToolButton* open_button =
        add_button("Open", "open", "Open a document or a MIDI file (Ctrl+O), a recent one, or the one before",
                   &TransportBar::open_file);
    recent_ = new QMenu(open_button);
    open_button->setMenu(recent_);
    open_button->setPopupMode(QToolButton::MenuButtonPopup);
    connect(recent_, &QMenu::aboutToShow, this, [this] { fill_recent(); });
}

void TransportBar::fill_recent() {
    recent_->clear();
    QAction* back = recent_->addAction("Bring Back the Previous Document");
    back->setEnabled(has_previous());
    connect(back, &QAction::triggered, this, [this] { bring_previous_back(); });
    recent_->addSeparator();
    if (add_recent_files(*recent_, open_recent) == 0)
        recent_->addAction("No recent documents")->setEnabled(false);
}

void TransportBar::show_state(const TransportState& state) {
    play_->setChecked(state.playing);
    play_->setText(state.playing ? "Stop" : "Play");
    loop_->setChecked(state.loop);
    position_->show_position(state.position);
    snap_->setChecked(state.snap);
    division_ = state.division;
    snap_->setText("Snap " + division_text(division_.division, division_.beat));
    solo_->setVisible(!state.solo.isEmpty());
    solo_->setText("Solo: " + state.solo);
    tempo_shown_ = state.tempo;
    if (!tempo_->hasFocus()) show_tempo();  // not while a tempo is being typed
}

void TransportBar::show_tempo() {
    const QSignalBlocker quiet(tempo_);
    tempo_->setValue(tempo_shown_);
}

void TransportBar::show_status(const QString& text) {
    status_->setText(text);
    status_->setToolTip(text);  // where it is cut
}

void TransportBar::show_pointer(const QString& text) {
    pointer_->setText(text);
    pointer_->setVisible(!text.isEmpty());  // its room is the status's
}

void TransportBar::show_console_open(bool open) { console_->setChecked(open); }

}  // namespace tq
