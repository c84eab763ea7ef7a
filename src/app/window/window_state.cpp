#include "app/window/window_state.h"

#include <QEvent>
#include <QWidget>

#include "host/state_folder.h"

namespace tq {

namespace {

/// Lives as long as its window.
class PlaceKeeper : public QObject {
 public:
    PlaceKeeper(QWidget& window, const QString& name)
        : QObject(&window), window_(window), key_("places/" + name) {
        window_.restoreGeometry(window_state()->value(key_).toByteArray());
        window_.installEventFilter(this);
    }

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous())
            window_state()->setValue(key_, window_.saveGeometry());
        return QObject::eventFilter(watched, event);
    }

 private:
    QWidget& window_;
    QString key_;
};

}  // namespace

std::unique_ptr<QSettings> window_state() {
    return std::make_unique<QSettings>(QString::fromStdString((state_folder() / "windows.ini").string()),
                                       QSettings::IniFormat);
}

void keep_place(QWidget& window, const QString& name) { new PlaceKeeper(window, name); }

}  // namespace tq
