#include "app/patch/sound_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "app/patch/session.h"
#include "instance/symbols.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// What a sound is called after its file; documents find no name that leads elsewhere.
std::string plain_name(const std::string& file) {
    std::string name = fs::path(file).stem().string();
    std::ranges::replace(name, '\\', '-');
    return name;
}

}  // namespace

SoundFiles::SoundFiles(Session& session) : session_(session) {
    session_.host().patch.want_buffer = [this](Symbol name) { want(name); };
    document_ = session_.box().info.emptied;
    for (const auto& [name, buffer] : session_.host().buffers)
        if (!buffer->path().empty() && session_.box().buffers.find(name)) adopt(name.text());
}

SoundFiles::~SoundFiles() { session_.host().patch.want_buffer = PatchEars().want_buffer; }

void SoundFiles::adopt(const std::string& name) {
    const Buffer* buffer = buffer_named(session_.host(), gensym(name));
    if (!buffer) return;
    const SoundFile gone{buffer->path(), {}};
    made_[name] = {sound_file_at(buffer->path()).value_or(gone), document_};
}

/// The document's own stays, also where another lies beside it: it was dropped, or the document was saved
/// elsewhere since. It is read again when its file was written anew.
void SoundFiles::want(Symbol symbol) {
    Host& host = session_.host();
    const std::string& name = symbol.text();
    enter_document();
    const auto own = made_.find(name);
    if (own == made_.end() && host.things.contains(symbol)) return;
    const std::optional<SoundFile> file = sound_beside(session_.box().info, name);
    if (own != made_.end()) {
        std::error_code ignored;
        const SoundFile before = own->second.file;
        const bool was_own = std::exchange(own->second.document, document_) == document_;
        const bool is_there = file && fs::equivalent(file->path, before.path, ignored);
        if (is_there ? file->written == before.written : was_own) return;
        made_.erase(own);
        if (!file) buffer_remove(host, symbol);  // another document's
    }
    if (!file) return miss(name);
    if (auto reason = buffer_read(host, symbol, file->path))
        object_error(session_.box(), *reason);
    else
        made_[name] = {*file, document_};
}

/// What another document left behind goes, unless it lies beside this one as well.
void SoundFiles::enter_document() {
    const DocumentInfo& info = session_.box().info;
    if (info.emptied == document_) return;
    document_ = info.emptied;
    std::erase_if(made_, [&](const auto& made) {
        const Symbol name = gensym(made.first);
        return !session_.box().buffers.find(name) &&
               fs::path(made.second.file.path).parent_path() != folder_of(info) &&
               buffer_remove(session_.host(), name);
    });
}

/// The file that a name stands for already, empty where that is not known; none: it means nothing.
std::optional<std::string> SoundFiles::meaning(const std::string& name) const {
    const Symbol symbol = gensym(name);
    if (const Buffer* buffer = buffer_named(session_.host(), symbol)) return buffer->path();
    if (symbol == tq_sym_empty || session_.host().things.contains(symbol)) return "";
    const std::optional<SoundFile> file = sound_beside(session_.box().info, name);
    return file ? std::optional(file->path) : std::nullopt;
}

NamedSound SoundFiles::name_for(const std::string& file) {
    enter_document();
    const std::string plain = plain_name(file);
    std::string name = plain;
    for (long count = 2;; ++count) {
        const std::optional<std::string> other = meaning(name);
        if (!other) return {name, file};
        if (is_same_file(*other, file)) return {name, *other};
        name = fmt::format("{}-{}", plain, count);
    }
}

void SoundFiles::miss(const std::string& name) {
    const DocumentInfo& info = session_.box().info;
    if (info.filename.empty() || !said_missing_.insert(folder_of(info) / name).second) return;
    object_error(session_.box(), fmt::format("no sound for the buffer \"{}\": beside the document is no file "
                                             "of that name ({})",
                                             name, sound_endings_told));
}

std::optional<NamedSound> parse_named_sound(const std::string& text) {
    const size_t sign = text.find('=');
    if (sign == text.npos || sign == 0 || sign + 1 == text.size()) return {};
    return NamedSound{text.substr(0, sign), text.substr(sign + 1)};
}

}  // namespace tq
