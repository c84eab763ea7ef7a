// Writing a file of another kind while the user looks on.
#pragma once

#include <string>

#include "app/patch/export.h"
#include "app/window/file_dialogs.h"

class QWidget;

namespace tq {

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
