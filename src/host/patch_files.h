// Who answers when a box asks for files, or the user for a choice.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/files.h"
#include "host/geometry.h"
#include "host/popup.h"

namespace tq {

class Object;
struct Patch;

/// One of those who answer, each inside of those that were there before. It answers what it wants to and
/// leaves the rest to whoever is outside of it; outside of all are the system's own files, and no dialogs.
/// They may go in any order: who goes takes itself out.
class PatchFiles {
 public:
    /// The head of a row, which nobody is in.
    PatchFiles() = default;
    /// From now on, this one is asked first.
    explicit PatchFiles(Patch& patch);
    virtual ~PatchFiles();
    PatchFiles(const PatchFiles&) = delete;
    PatchFiles& operator=(const PatchFiles&) = delete;

    /// Asks the user for a file to open, or where to save (with a name to begin with); a path, or none when
    /// the user cancels.
    virtual std::optional<std::string> open_dialog();
    virtual std::optional<std::string> save_dialog(const std::string& name);
    /// Shows a menu at a point of the box; the index of the item that the user chooses, or none.
    virtual std::optional<size_t> popup(std::span<const PopupItem> items, Point at);
    /// Finds, reads and writes as locatefile_extended(), read_file() and write_file() do.
    virtual std::optional<LocatedFile> locate(const std::string& name, const std::string& folder);
    virtual FileBytes read(const std::string& path, std::string& fault);
    virtual bool write(const std::string& path, std::string_view bytes, std::string& fault);
    /// Keeps the text of a document that has not been saved and is about to be replaced.
    virtual void keep_copy(const Object& object, const std::string& text);

 private:
    PatchFiles* head_ = nullptr;     ///< none: this is it, or it is gone
    PatchFiles* outside_ = nullptr;  ///< none: the system
};

}  // namespace tq
