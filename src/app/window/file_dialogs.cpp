#include "app/window/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include "app/window/window_state.h"

namespace tq {

namespace {

/// The suffix of the kind that was chosen, where there are several.
QString suffix_of(const QString& filter, const QString& otherwise) {
    const qsizetype star = filter.indexOf("*.");
    if (star < 0) return otherwise;
    const QString rest = filter.mid(star + 2);
    return rest.left(rest.indexOf(QRegularExpression("[ )]")));
}

constexpr const char* folder_key = "folder";

/// Where a file was opened or written last, else where the user's documents are, if anywhere.
QString usual_folder() {
    const QString last = window_state()->value(folder_key).toString();
    for (const QString& folder : {last, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)})
        if (QFileInfo(folder).isDir()) return folder;
    return QDir::homePath();
}

void remember_folder(const QString& file) {
    window_state()->setValue(folder_key, QFileInfo(file).absolutePath());
}

}  // namespace

QString choose_file_to_open(QWidget& window, const QString& title, const QString& filters,
                            const std::string& folder) {
    const QString begin = folder.empty() ? usual_folder() : QString::fromStdString(folder);
    const QString chosen = QFileDialog::getOpenFileName(&window, title, begin, filters);
    if (!chosen.isEmpty()) remember_folder(chosen);
    return chosen;
}

QStringList choose_files_to_open(QWidget& window, const QString& title, const QString& filters) {
    const QStringList chosen = QFileDialog::getOpenFileNames(&window, title, usual_folder(), filters);
    if (!chosen.isEmpty()) remember_folder(chosen.front());
    return chosen;
}

QString choose_file_to_write(QWidget& window, const FileQuestion& question, const std::string& name) {
    QFileDialog dialog(&window, question.title, {}, question.filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(question.suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(suffix_of(filter, question.suffix));
    });
    const QFileInfo wanted(QString::fromStdString(name));
    dialog.setDirectory(wanted.isAbsolute() ? wanted.absolutePath() : usual_folder());
    dialog.selectFile(wanted.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    const QString chosen = dialog.selectedFiles().front();
    remember_folder(chosen);
    return chosen;
}

}  // namespace tq
