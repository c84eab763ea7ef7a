// Moments in the words that people use.
#pragma once

#include <QDateTime>
#include <QString>

namespace tq {

/// "just now", "5 minutes ago", "today at 14:03", "yesterday at 14:03", "Monday at 14:03", "12 March 2026".
QString time_words(const QDateTime& when, const QDateTime& now = QDateTime::currentDateTime());
/// A length of time in ms: "0:12", "1:02:03".
QString length_words(double ms);

}  // namespace tq
