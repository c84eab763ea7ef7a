#include "app/window/position_text.h"

#include <QStringList>
#include <cmath>

#include "app/patch/bar_beats.h"
#include "model/bars.h"

namespace tq {

namespace {

constexpr double longest_ms = 1e12;

QString ms_text(double ms, const Meter&) { return QString::number(std::floor(ms), 'f', 0); }

std::optional<double> ms_value(const QString& text, const Meter&) {
    bool fits = false;
    const double ms = text.toDouble(&fits);
    return fits ? std::optional(ms) : std::nullopt;
}

QString minutes_text(double ms, const Meter&) {
    const auto whole = static_cast<qint64>(std::floor(ms));
    return QString("%1:%2.%3")
        .arg(whole / 60000, 2, 10, QChar('0'))
        .arg(whole / 1000 % 60, 2, 10, QChar('0'))
        .arg(whole % 1000, 3, 10, QChar('0'));
}

/// Seconds, minutes and seconds, or hours as well.
std::optional<double> minutes_value(const QString& text, const Meter&) {
    double seconds = 0;
    for (const QString& part : text.split(':')) {
        bool fits = false;
        const double value = part.toDouble(&fits);
        if (!fits || value < 0) return {};
        seconds = seconds * 60 + value;
    }
    return seconds * 1000;
}

/// To the nearest thousandth of a beat, so that a beat never shows as the end of the one before.
QString bars_text(double ms, const Meter& meter) {
    constexpr double parts = 1000;
    const std::optional<Measure> bar = TQ_Prseq_Meter_GetMeasureFromPosition(meter, ms);
    const double part = bar ? (bar->end - bar->start) / static_cast<double>(bar->beats) / parts : 0;
    const std::optional<BarBeat> place = bar_beat_at(meter, ms + part / 2);
    if (!place) return "-";
    const auto thousandths = static_cast<qint64>(std::floor(place->beat * parts));
    return QString("%1.%2.%3")
        .arg(place->bar)
        .arg(thousandths / 1000)
        .arg(thousandths % 1000, 3, 10, QChar('0'));
}

std::optional<double> bars_value(const QString& text, const Meter& meter) {
    return ms_of_bar_text(meter, text.toStdString());
}

struct FaceRow {
    const char* unit;
    QString (*text)(double ms, const Meter& meter);
    std::optional<double> (*value)(const QString& text, const Meter& meter);
};
/// In the order of TimeFace.
constexpr FaceRow faces[] = {{"ms", ms_text, ms_value},
                             {"m:s.ms", minutes_text, minutes_value},
                             {"bars.beats", bars_text, bars_value}};

const FaceRow& row_of(TimeFace face) { return faces[static_cast<size_t>(face)]; }

}  // namespace

const char* unit_of(TimeFace face) { return row_of(face).unit; }

TimeFace face_after(TimeFace face) {
    return static_cast<TimeFace>((static_cast<size_t>(face) + 1) % std::size(faces));
}

QString position_text(TimeFace face, double ms, const Meter& meter) { return row_of(face).text(ms, meter); }

std::optional<double> position_of_text(TimeFace face, const QString& text, const Meter& meter) {
    const std::optional<double> ms = row_of(face).value(text.trimmed(), meter);
    if (!ms || !(*ms >= 0 && *ms <= longest_ms)) return {};
    return std::round(*ms * 1000) / 1000;  // as many digits as are ever shown
}

}  // namespace tq
