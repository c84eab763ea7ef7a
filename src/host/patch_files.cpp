#include "host/patch_files.h"

#include "host/host.h"

namespace tq {

PatchFiles::PatchFiles(Patch& patch) : head_(&patch), outside_(head_->outside_) { head_->outside_ = this; }

PatchFiles::~PatchFiles() {
    if (!head_)
        for (PatchFiles* link = outside_; link; link = link->outside_) link->head_ = nullptr;
    for (PatchFiles* link = head_; link; link = link->outside_)
        if (link->outside_ == this) link->outside_ = outside_;
}

std::optional<std::string> PatchFiles::open_dialog() {
    return outside_ ? outside_->open_dialog() : std::nullopt;
}

std::optional<std::string> PatchFiles::save_dialog(const std::string& name) {
    return outside_ ? outside_->save_dialog(name) : std::nullopt;
}

std::optional<size_t> PatchFiles::popup(std::span<const PopupItem> items, Point at) {
    return outside_ ? outside_->popup(items, at) : std::nullopt;
}

std::optional<LocatedFile> PatchFiles::locate(const std::string& name, const std::string& folder) {
    return outside_ ? outside_->locate(name, folder) : locatefile_extended(name, folder);
}

FileBytes PatchFiles::read(const std::string& path, std::string& fault) {
    return outside_ ? outside_->read(path, fault) : read_file(path, fault);
}

bool PatchFiles::write(const std::string& path, std::string_view bytes, std::string& fault) {
    return outside_ ? outside_->write(path, bytes, fault) : write_file(path, bytes, fault);
}

void PatchFiles::keep_copy(const Object& object, const std::string& text) {
    if (outside_) outside_->keep_copy(object, text);
}

}  // namespace tq
