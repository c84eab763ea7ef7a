#include "app/window/surroundings.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QToolTip>

#include "app/window/window_state.h"

namespace tq {

namespace {

constexpr const char* const texts[] = {"As the Desktop", "Light", "Dark"};
constexpr const char* key = "surroundings";

QPalette dark_palette() {
    const QColor window(45, 45, 48), base(30, 30, 32), text(222, 222, 222), faint(128, 128, 128),
        highlight(58, 110, 165);
    QPalette palette(text, window, QColor(90, 90, 94), QColor(24, 24, 26), faint, text, base);
    palette.setColor(QPalette::Button, QColor(58, 58, 62));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
    palette.setColor(QPalette::ToolTipBase, QColor(58, 58, 62));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Link, QColor(110, 170, 230));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

void show(bool dark) {
    static const QPalette usual = QApplication::palette();  // the platform's, which may be dark by itself
    const bool is_dark = QApplication::palette() != usual;
    if (dark == is_dark) return;
    const QPalette palette = dark ? dark_palette() : usual;
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

/// The desktop's answer: 1 when it prefers dark.
void ask_desktop() {
    QDBusMessage question =
        QDBusMessage::createMethodCall("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                       "org.freedesktop.portal.Settings", "Read");
    question << QString("org.freedesktop.appearance") << QString("color-scheme");
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), qApp);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, qApp, [](QDBusPendingCallWatcher* done) {
        done->deleteLater();
        if (kept_surroundings() != Surroundings::AsTheDesktop) return;  // chosen meanwhile
        const QDBusPendingReply<QDBusVariant> answer = *done;
        if (answer.isError()) return show(false);
        QVariant value = answer.value().variant();
        if (value.canConvert<QDBusVariant>())
            value = value.value<QDBusVariant>().variant();  // in another one
        show(value.toUInt() == 1);
    });
}

void show_kept() {
    const Surroundings kept = kept_surroundings();
    if (kept != Surroundings::AsTheDesktop) return show(kept == Surroundings::Dark);
    if (QDBusConnection::sessionBus().isConnected())
        ask_desktop();
    else
        show(false);
}

}  // namespace

const char* text_of(Surroundings surroundings) { return texts[static_cast<int>(surroundings)]; }

Surroundings kept_surroundings() {
    const int kept = window_state()->value(key).toInt();
    return kept >= 0 && kept < int(std::size(texts)) ? static_cast<Surroundings>(kept)
                                                     : Surroundings::AsTheDesktop;
}

void choose_surroundings(Surroundings surroundings) {
    window_state()->setValue(key, static_cast<int>(surroundings));
    show_kept();
}

void follow_surroundings() {
    show_kept();
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, qApp, [](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive) show_kept();
    });
}

}  // namespace tq
