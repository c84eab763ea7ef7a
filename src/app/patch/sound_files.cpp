#include "app/patch/sound_files.h"

#include <array>

#include "app/patch/session.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

constexpr std::array endings = {".wav", ".flac", ".aif", ".aiff", ".ogg"};

/// Whether a name is that of a file in a folder, and leads nowhere else.
bool stays_in_folder(const std::string& name) {
    return !name.empty() && name.find_first_of(std::string_view("/\\\0", 3)) == name.npos;
}

}  // namespace

SoundFiles::SoundFiles(Session& session) : session_(session) {
    session_.host().patch.want_buffer = [this](Symbol name) { want(name); };
    folder_ = session_.box().info.folder;
    for (const auto& [name, buffer] : session_.host().buffers)  // those of a session that was brought back
        if (std::optional<File> file = beside_document(name.text()); file && file->path == buffer->path())
            made_[name.text()] = *file;
}

SoundFiles::~SoundFiles() { session_.host().patch.want_buffer = PatchEars().want_buffer; }

void SoundFiles::want(Symbol symbol) {
    Host& host = session_.host();
    const std::string& name = symbol.text();
    enter_folder();
    const auto own = made_.find(name);
    if (own == made_.end() && host.things.contains(symbol)) return;
    const std::optional<File> file = beside_document(name);
    if (own != made_.end()) {
        if (file == own->second) return;
        made_.erase(own);
        if (!file) buffer_remove(host, symbol);  // another document's
    }
    if (!file) return miss(name);
    if (auto reason = buffer_read(host, symbol, file->path))
        object_error(session_.box(), *reason);
    else
        made_[name] = *file;
}

/// What another document left behind goes.
void SoundFiles::enter_folder() {
    if (session_.box().info.folder == folder_) return;
    folder_ = session_.box().info.folder;
    std::erase_if(made_, [&](const auto& made) {
        const Symbol name = gensym(made.first);
        return !session_.box().buffers.find(name) && buffer_remove(session_.host(), name);
    });
}

std::optional<SoundFiles::File> SoundFiles::beside_document(const std::string& name) const {
    if (session_.box().info.filename.empty() || !stays_in_folder(name)) return {};
    for (const char* ending : endings) {
        const fs::path path = fs::path(folder_) / (name + ending);
        std::error_code error;
        if (!fs::is_regular_file(path, error)) continue;
        return File{path.string(), fs::last_write_time(path, error)};
    }
    return {};
}

void SoundFiles::miss(const std::string& name) {
    if (session_.box().info.filename.empty() || !said_missing_.insert(fs::path(folder_) / name).second)
        return;
    object_error(session_.box(), "no sound for the buffer \"" + name +
                                     "\": beside the document is no file of that name (.wav, .flac, .aif, "
                                     ".aiff or .ogg)");
}

std::optional<NamedSound> parse_named_sound(const std::string& text) {
    const size_t sign = text.find('=');
    if (sign == text.npos || sign == 0 || sign + 1 == text.size()) return {};
    return NamedSound{text.substr(0, sign), text.substr(sign + 1)};
}

}  // namespace tq
