#include "app/window/position_field.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace tq {

PositionField::PositionField(const Meter& meter)
    : meter_(meter), line_(new QLineEdit), unit_(new QToolButton) {
    line_->setObjectName("position");
    line_->setToolTip("Play position; type another one");
    line_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    line_->setFixedWidth(line_->fontMetrics().horizontalAdvance("000:00.0000") + 12);
    unit_->setObjectName("position unit");
    unit_->setToolTip("What the position is told in; a click shows the next");
    unit_->setFocusPolicy(Qt::NoFocus);
    unit_->setAutoRaise(true);
    unit_->setFixedWidth(unit_->fontMetrics().horizontalAdvance(unit_of(TimeFace::BarsBeats)) + 12);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(line_);
    row->addWidget(unit_);
    connect(line_, &QLineEdit::editingFinished, this, [this] { say(); });
    connect(unit_, &QToolButton::clicked, this, [this] { turn(); });
    unit_->setText(unit_of(face_));
    show_text();
}

void PositionField::show_position(double ms) {
    ms_ = ms;
    if (!line_->isModified()) show_text();
}

void PositionField::take_back() {
    line_->setModified(false);
    show_text();
}

void PositionField::say() {
    if (!line_->isModified()) return;
    const std::optional<double> ms = position_of_text(face_, line_->text(), meter_);
    take_back();
    if (ms) moved(*ms);
}

void PositionField::turn() { show_face(face_after(face_)); }

void PositionField::show_face(TimeFace face) {
    face_ = face;
    unit_->setText(unit_of(face_));
    take_back();
}

/// What is selected to be typed over stays so.
void PositionField::show_text() {
    const QString text = position_text(face_, ms_, meter_);
    if (line_->text() == text) return;
    const bool all = line_->hasFocus() && line_->selectedText() == line_->text();
    line_->setText(text);
    if (all) line_->selectAll();
}

}  // namespace tq
