#include "app/window/transport_bar.h"

#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <cmath>

#include "app/patch/recent_files.h"

namespace tq {

namespace {

constexpr double slowest = 1, fastest = 10000;  // beats a minute
constexpr int full_volume = 100, volume_width = 90;

}  // namespace

QString position_text(double ms) {
    const auto whole = static_cast<qint64>(std::floor(ms));
    return QString("%1:%2.%3")
        .arg(whole / 60000, 2, 10, QChar('0'))
        .arg(whole / 1000 % 60, 2, 10, QChar('0'))
        .arg(whole % 1000, 3, 10, QChar('0'));
}

QToolButton* TransportBar::button(const QString& text, const QString& name, const QString& hint) {
    auto* made = new QToolButton;
    made->setText(text);
    made->setObjectName(name);
    made->setToolTip(hint);
    made->setCheckable(true);
    made->setFocusPolicy(Qt::NoFocus);
    layout()->addWidget(made);
    return made;
}

TransportBar::TransportBar() {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    play_ = button("Play", "play", "Start or stop (Space)");
    position_ = new QLabel(position_text(0));
    position_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    row->addWidget(position_);
    row->addWidget(make_tempo());
    loop_ = button("Loop", "loop", "Play the loop range over and over");
    row->addWidget(new QLabel("Volume"));
    row->addWidget(make_volume());
    status_ = new QLabel;
    row->addWidget(status_, 1);
    make_open();
    QToolButton* settings_button =
        button("Settings", "settings button", "What the box looks like and does (Ctrl+,)");
    settings_button->setCheckable(false);
    console_ = button("Console", "console", "Messages to and from the box (Ctrl+K)");
    connect(play_, &QToolButton::clicked, this, [this](bool on) { play(on); });
    connect(loop_, &QToolButton::clicked, this, [this](bool on) { loop(on); });
    connect(console_, &QToolButton::clicked, this, [this](bool on) { console(on); });
    connect(settings_button, &QToolButton::clicked, this, [this] { settings(); });
}

void TransportBar::make_open() {
    QToolButton* open_button =
        button("Open", "open", "Open a document or a MIDI file (Ctrl+O), a recent one, or the one before");
    open_button->setCheckable(false);
    recent_ = new QMenu(open_button);
    open_button->setMenu(recent_);
    open_button->setPopupMode(QToolButton::MenuButtonPopup);
    connect(open_button, &QToolButton::clicked, this, [this] { open_file(); });
    connect(recent_, &QMenu::aboutToShow, this, [this] { fill_recent(); });
}

void TransportBar::fill_recent() {
    recent_->clear();
    QAction* back = recent_->addAction("Bring Back the Previous Document");
    back->setEnabled(has_previous());
    connect(back, &QAction::triggered, this, [this] { bring_previous_back(); });
    recent_->addSeparator();
    for (const std::string& path : recent_files()) {
        QAction* row = recent_->addAction(QString::fromStdString(path));
        row->setEnabled(QFileInfo::exists(QString::fromStdString(path)));
        connect(row, &QAction::triggered, this, [this, path] { open_recent(path); });
    }
    if (recent_->actions().size() == 2) recent_->addAction("No recent documents")->setEnabled(false);
}

QWidget* TransportBar::make_tempo() {
    tempo_ = new QDoubleSpinBox;
    tempo_->setRange(slowest, fastest);
    tempo_->setDecimals(1);
    tempo_->setSuffix(" bpm");
    tempo_->setKeyboardTracking(false);
    tempo_->setToolTip("Tempo");
    connect(tempo_, &QDoubleSpinBox::valueChanged, this, [this](double bpm) { tempo(bpm); });
    return tempo_;
}

QWidget* TransportBar::make_volume() {
    volume_ = new QSlider(Qt::Horizontal);
    volume_->setRange(0, full_volume);
    volume_->setValue(full_volume);
    volume_->setFixedWidth(volume_width);
    volume_->setFocusPolicy(Qt::NoFocus);
    volume_->setToolTip("Volume of the synthesiser");
    connect(volume_, &QSlider::valueChanged, this,
            [this](int value) { volume(double(value) / full_volume); });
    return volume_;
}

void TransportBar::show_state(const TransportState& state) {
    play_->setChecked(state.playing);
    play_->setText(state.playing ? "Stop" : "Play");
    loop_->setChecked(state.loop);
    position_->setText(position_text(state.position));
    if (tempo_->hasFocus()) return;  // not while a tempo is being typed
    const QSignalBlocker quiet(tempo_);
    tempo_->setValue(state.tempo);
}

void TransportBar::show_status(const QString& text) { status_->setText(text); }
void TransportBar::show_console_open(bool open) { console_->setChecked(open); }

}  // namespace tq
