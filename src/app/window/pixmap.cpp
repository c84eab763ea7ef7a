#include "app/window/pixmap.h"

#include "host/qt/painter.h"

namespace tq {

QPixmap pixmap_of(const Surface& surface, double ratio) {
    const Surface::Image& image = surface.image();
    const bool use_twice = ratio > 1 && !image.twice.isNull();
    QPixmap pixmap = QPixmap::fromImage(use_twice ? image.twice : image.pixels);
    pixmap.setDevicePixelRatio(use_twice ? 2 : image.ratio);
    return pixmap;
}

QIcon icon_of(const Surface& surface) {
    QIcon icon(pixmap_of(surface, 1));
    icon.addPixmap(pixmap_of(surface, 2));
    return icon;
}

}  // namespace tq
