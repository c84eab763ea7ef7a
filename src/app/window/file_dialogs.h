// Choosing files by hand.
#pragma once

#include <QStringList>
#include <string>

class QWidget;

namespace tq {

struct FileQuestion {
    const char* title;
    const char* filters;
    const char* suffix;  ///< of a name that has none
};
/// Empty when the user cancels. The dialog begins in a folder, or without one where a file was last opened or
/// written, or among the user's documents.
QString choose_file_to_open(QWidget& window, const QString& title, const QString& filters,
                            const std::string& folder);
/// The same of any number of files.
QStringList choose_files_to_open(QWidget& window, const QString& title, const QString& filters);
/// Empty when the user cancels. What exists is only written over when the user says so.
QString choose_file_to_write(QWidget& window, const FileQuestion& question, const std::string& name);

}  // namespace tq
