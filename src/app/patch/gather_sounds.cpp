#include "app/patch/gather_sounds.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "host/buffer.h"
#include "host/file_writer.h"
#include "host/host.h"
#include "instance/prseq.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

/// Events that only the history or the clipboard holds are not saved.
bool is_played(const Prseq& box, Symbol name) {
    const BufferOverview* overview = box.buffers.find(name);
    return overview && std::ranges::any_of(overview->links, [](const LinkedBuffer& link) {
               const Track* track = link.event().track;
               return track && track->index >= 0;
           });
}

std::vector<const Buffer*> played_buffers(const Prseq& box) {
    std::vector<const Buffer*> played;
    for (const auto& [name, buffer] : box.host().buffers)
        if (!buffer->path().empty() && is_played(box, name)) played.push_back(buffer.get());
    std::ranges::sort(played, {}, [](const Buffer* buffer) { return buffer->name().text(); });
    return played;
}

/// Why that failed; then nothing is there. Empty: it is there.
std::string copy_file(const std::string& from, const std::string& to) {
    constexpr std::streamsize piece = 1 << 20;
    std::ifstream source(from, std::ios::binary);
    if (!source) return std::strerror(errno);
    FileWriter copy(to);
    std::vector<char> bytes(piece);
    while (copy && source) {
        source.read(bytes.data(), piece);
        copy.write({bytes.data(), static_cast<size_t>(source.gcount())});
    }
    if (!source.eof() && copy) return std::strerror(EIO);
    copy.commit();
    return copy.fault();
}

}  // namespace

GatheredSounds SoundGatherer::gather(const Prseq& box) {
    GatheredSounds gathered;
    if (!box.info.filename.empty())
        for (const Buffer* buffer : played_buffers(box)) gather(box, *buffer, gathered);
    return gathered;
}

void SoundGatherer::gather(const Prseq& box, const Buffer& buffer, GatheredSounds& gathered) {
    const std::string& name = buffer.name().text();
    const std::optional<SoundFile> own = sound_file_at(buffer.path()), beside = sound_beside(box.info, name);
    if (own && beside) return compare(name, {*own, *beside}, gathered);
    if (beside) return;  // nothing is left that could be better
    const std::string file = name + small_ending(buffer.path()), path = (folder_of(box.info) / file).string();
    const std::string fault = !own                      ? std::strerror(ENOENT)
                              : !can_lie_beside(name)   ? "no file can have its name"
                              : !has_sound_ending(path) ? fmt::format("it is none of {}", sound_endings_told)
                                                        : copy_file(own->path, path);
    if (fault.empty()) {
        gathered.copied.push_back(file);
        if (const std::optional<SoundFile> copy = sound_file_at(path)) known_[name] = {*own, *copy};
    } else {
        gathered.told.push_back(fmt::format(
            "the document will not find the sound \"{}\": \"{}\" could not be copied beside it: {}", name,
            buffer.path(), fault));
    }
}

void SoundGatherer::compare(const std::string& name, const Pair& pair, GatheredSounds& gathered) {
    if (const auto known = known_.find(name); known != known_.end() && known->second == pair) return;
    known_[name] = pair;
    if (!is_same_file(pair.own.path, pair.beside.path))
        gathered.told.push_back(
            fmt::format("beside the document lies another sound than \"{}\": it will open "
                        "with \"{}\" for \"{}\"",
                        pair.own.path, pair.beside.path, name));
}

}  // namespace tq
