// Choosing files, and writing one while the user looks on.
#pragma once

#include <QStringList>
#include <functional>
#include <string>

#include "app/patch/export.h"

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

struct ExportKind {
    FileQuestion question;
    bool picture = false;
    bool full_level = false;  ///< the sound is as loud as its file can be
};
inline constexpr ExportKind sound_export{{"Export Sound", "WAV (*.wav);;FLAC (*.flac)", "wav"}};
inline constexpr ExportKind loud_sound_export{
    {"Export Sound at Full Level", "WAV (*.wav);;FLAC (*.flac)", "wav"}, false, true};
inline constexpr ExportKind midi_export{{"Export MIDI File", "Standard MIDI Files (*.mid *.midi)", "mid"}};
inline constexpr ExportKind picture_export{{"Export Picture", "PNG (*.png)", "png"}, true};

/// Writes it; a dialog shows how far that is, and can stop it.
ExportEnd export_with_progress(QWidget& window, Session& session, const ExportKind& kind,
                               const std::string& path);

}  // namespace tq
