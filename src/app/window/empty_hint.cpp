#include "app/window/empty_hint.h"

#include <algorithm>

#include "app/window/shortcuts.h"
#include "instance/prseq.h"

namespace tq {

namespace {

QString what_to_do() {
    const auto row = [](const Shortcut::What& what, const QString& does) {
        const QString key = key_text(what);
        return key.isEmpty()
                   ? QString()
                   : "<tr><td align='right'><b>" + key + "</b>&nbsp;</td><td>" + does + "</td></tr>";
    };
    return "<table align='center' cellpadding='3'>" +
           row(Command::InsertMode, "the pencil: drag here to draw notes") +
           row(Command::SelectMode, "the arrow: select, move and resize them") +
           row(WindowAction::Open, "open a document or a MIDI file; or drop it here, or sounds") +
           row(Command::PlayOrStop, "play, stop") +
           row(WindowAction::Keys, "all keys, and what the mouse does") +
           "</table><p>Track &gt; Sound chooses an instrument, Grid what time snaps to; the tempo is in the "
           "bar below.</p>";
}

bool is_empty(const Prseq& box) {
    return std::ranges::all_of(box.tracks, [](const TrackRef& track) { return track->events.empty(); });
}

}  // namespace

EmptyHint::EmptyHint(QWidget& canvas, const Prseq& box) : QLabel(&canvas), box_(box) {
    setObjectName("empty hint");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::RichText);
    setAlignment(Qt::AlignCenter);
    setStyleSheet("color: rgb(90, 90, 90);");  // the canvas is light whatever surrounds it
    hide();
}

void EmptyHint::follow() {
    const bool wanted = is_empty(box_);
    if (!wanted) return hide();
    const Rect& part = box_.layout[Part::MainDisplay];
    setGeometry(QRectF(part.x, part.y, part.width, part.height).toRect());
    if (!isHidden()) return;
    setText(what_to_do());
    show();
}

}  // namespace tq
