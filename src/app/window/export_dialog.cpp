#include "app/window/export_dialog.h"

#include <QFileInfo>
#include <QProgressDialog>

#include "app/patch/export.h"
#include "app/patch/paint_offscreen.h"

namespace tq {

namespace {

constexpr int full = 1000;
constexpr int shown_after_ms = 300;

}  // namespace

ExportEnd export_with_progress(QWidget& window, Session& session, const ExportKind& kind,
                               const std::string& path) {
    if (kind.picture) {
        OffscreenPainter painter;
        painter.ratio = window.devicePixelRatioF();
        const std::optional<std::string> fault = painter.paint_to_png(session.box(), path);
        return {.written = !fault, .fault = fault.value_or("")};
    }
    QProgressDialog dialog("Writing " + QFileInfo(QString::fromStdString(path)).fileName() + " …", "Cancel",
                           0, full, &window);
    dialog.setObjectName("export progress");
    dialog.setWindowModality(Qt::WindowModal);  // setValue() lets the window live meanwhile
    dialog.setMinimumDuration(shown_after_ms);
    const ExportEnd end = export_document(session, {path, kind.full_level}, [&](double done) {
        dialog.setValue(static_cast<int>(done * (full - 1)));
        return !dialog.wasCanceled();
    });
    dialog.setValue(full);
    return end;
}

}  // namespace tq
