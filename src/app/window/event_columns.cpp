#include "app/window/event_columns.h"

#include <cmath>

#include "app/patch/exact_atom.h"
#include "app/window/note_names.h"
#include "app/window/position_text.h"
#include "instance/prseq.h"
#include "instance/symbols.h"

namespace tq {

namespace {

using Edited = std::optional<Atoms>;

QString text_of(double value) { return QString::number(value, 'g', 12); }
QString text_of(const std::string& text) { return QString::fromStdString(text); }

struct Limits {
    double least, most;
};
constexpr Limits starts{0, 1e12}, durations{1, 1e12}, pitches{0, Prseq::maximumpitch}, velocities{0, 127};

std::optional<double> number_of(const QString& typed, const Limits& limits) {
    bool fits = false;
    const double value = typed.trimmed().toDouble(&fits);
    return fits && value >= limits.least && value <= limits.most ? std::optional(value) : std::nullopt;
}

Edited set_start(const Prseq&, const Event&, const QString& typed) {
    const std::optional<double> ms = number_of(typed, starts);
    return ms ? Edited({tq_sym_start, exact_atom(*ms)}) : std::nullopt;
}
Edited set_bar(const Prseq& box, const Event&, const QString& typed) {
    const std::optional<double> ms = position_of_text(TimeFace::BarsBeats, typed, box.meter);
    return ms ? Edited({tq_sym_start, exact_atom(*ms)}) : std::nullopt;
}
Edited set_duration(const Prseq&, const Event&, const QString& typed) {
    const std::optional<double> ms = number_of(typed, durations);
    return ms ? Edited({tq_sym_duration, exact_atom(*ms)}) : std::nullopt;
}
Edited note(double pitch, double velocity) {
    return Atoms{tq_sym_tag_note_open, exact_atom(pitch), exact_atom(velocity), tq_sym_tag_note_close};
}
Edited set_pitch(const Prseq&, const Event& event, const QString& typed) {
    const std::optional<double> pitch = number_of(typed, pitches);
    return pitch ? note(*pitch, event.velocity) : std::nullopt;
}
Edited set_velocity(const Prseq&, const Event& event, const QString& typed) {
    const std::optional<double> velocity = number_of(typed, velocities);
    return velocity ? note(event.pitch, *velocity) : std::nullopt;
}
Edited set_label(const Prseq&, const Event&, const QString& typed) {
    return Atoms{tq_sym_label, gensym(typed.toStdString())};
}

constexpr EventColumn columns[] = {
    {"Id", 60, Qt::AlignRight, [](const Prseq&, const Event& e) { return QString::number(e.id); },
     [](const Event& e) { return static_cast<double>(e.id); }, nullptr, nullptr},
    {"Track", 90, Qt::AlignLeft, [](const Prseq&, const Event& e) { return text_of(e.track->name); },
     [](const Event& e) { return static_cast<double>(e.track->index); }, nullptr, nullptr},
    {"Start ms", 80, Qt::AlignRight, [](const Prseq&, const Event& e) { return text_of(e.start); },
     [](const Event& e) { return e.start; }, nullptr, set_start},
    {"Bar.Beat", 80, Qt::AlignRight,
     [](const Prseq& b, const Event& e) { return position_text(TimeFace::BarsBeats, e.start, b.meter); },
     [](const Event& e) { return e.start; }, nullptr, set_bar},
    {"Duration ms", 90, Qt::AlignRight, [](const Prseq&, const Event& e) { return text_of(e.duration); },
     [](const Event& e) { return e.duration; }, nullptr, set_duration},
    {"Pitch", 60, Qt::AlignRight, [](const Prseq&, const Event& e) { return text_of(e.pitch); },
     [](const Event& e) { return e.pitch; }, nullptr, set_pitch},
    {"Note", 70, Qt::AlignRight, [](const Prseq&, const Event& e) { return note_name(e.pitch, e.track); },
     [](const Event& e) { return e.pitch; }, nullptr, nullptr},
    {"Velocity", 70, Qt::AlignRight, [](const Prseq&, const Event& e) { return text_of(e.velocity); },
     [](const Event& e) { return e.velocity; }, nullptr, set_velocity},
    {"Label", 100, Qt::AlignLeft, [](const Prseq&, const Event& e) { return text_of(e.label.text()); },
     nullptr, [](const Event& e) { return e.label; }, set_label},
    {"Sound", 90, Qt::AlignLeft, [](const Prseq&, const Event& e) { return text_of(e.link().name.text()); },
     nullptr, [](const Event& e) { return e.link().name; }, nullptr},
};

}  // namespace

std::span<const EventColumn> event_columns() { return columns; }

}  // namespace tq
