#include "app/window/time_words.h"

#include <QLocale>
#include <cmath>

namespace tq {

QString time_words(const QDateTime& when, const QDateTime& now) {
    constexpr qint64 minute = 60, hour = 60 * minute, week = 7;  // seconds, days
    const QLocale english = QLocale::c();
    const qint64 seconds = when.secsTo(now), days = when.date().daysTo(now.date());
    const QString time = " at " + english.toString(when, "HH:mm");
    if (seconds >= 0 && seconds < minute) return "just now";
    if (seconds >= 0 && seconds < 2 * minute) return "a minute ago";
    if (seconds >= 0 && seconds < hour) return QString("%1 minutes ago").arg(seconds / minute);
    if (days == 0) return "today" + time;
    if (days == 1) return "yesterday" + time;
    if (days > 1 && days < week) return english.toString(when, "dddd") + time;
    return english.toString(when, "d MMMM yyyy");
}

QString length_words(double ms) {
    const auto seconds = static_cast<qint64>(std::round(ms / 1000));
    const QChar zero('0');
    const QString rest = QString(":%1").arg(seconds % 60, 2, 10, zero);
    const qint64 minutes = seconds / 60;
    if (minutes < 60) return QString::number(minutes) + rest;
    return QString("%1:%2").arg(minutes / 60).arg(minutes % 60, 2, 10, zero) + rest;
}

}  // namespace tq
