#include "host/buffer.h"

#include <algorithm>
#include <filesystem>

#include "host/class.h"
#include "host/host.h"

namespace tq {

namespace {

const Class& buffer_class() {
    static const Class the_class("buffer~");
    return the_class;
}

const Symbol binding = gensym("globalsymbol_binding"), unbinding = gensym("globalsymbol_unbinding"),
             modified = gensym("buffer_modified");

}  // namespace

Buffer::Buffer(Host& host, Symbol name, SoundRef sound, std::string path)
    : Object(host, buffer_class()), name_(name), sound_(std::move(sound)), path_(std::move(path)) {
    host.things[name_] = this;
}

Buffer::~Buffer() {
    auto bound = host().things.find(name_);
    if (bound != host().things.end() && bound->second == this) host().things.erase(bound);
}

Buffer* buffer_named(const Host& host, Symbol name) {
    auto bound = host.things.find(name);
    return bound == host.things.end() ? nullptr : dynamic_cast<Buffer*>(bound->second);
}

bool buffer_set(Host& host, Symbol name, SoundRef sound, std::string path) {
    if (Buffer* buffer = buffer_named(host, name)) {
        buffer->sound_ = std::move(sound);
        buffer->path_ = std::move(path);
        host.patch.buffer_changed(name);
        host.references.tell(name, *buffer, modified);
        return true;
    }
    if (name.empty() || host.things.contains(name)) return false;
    auto made = std::make_unique<Buffer>(host, name, std::move(sound), std::move(path));
    Buffer& buffer = *(host.buffers[name] = std::move(made));
    host.patch.buffer_changed(name);
    host.references.tell(name, buffer, binding);
    return true;
}

std::optional<std::string> buffer_read(Host& host, Symbol name, const std::string& path) {
    std::string fault;
    SoundRef sound = read_sound_file(path, fault);
    if (!sound) return "could not read \"" + path + "\": " + fault;
    std::error_code ignored;
    if (!buffer_set(host, name, std::move(sound), std::filesystem::absolute(path, ignored).string()))
        return "the name \"" + name.text() + "\" is taken by something that is no buffer";
    return {};
}

bool buffer_remove(Host& host, Symbol name) {
    auto removed = host.buffers.extract(name);
    if (removed.empty()) return false;
    Buffer& buffer = *removed.mapped();
    host.things.erase(name);  // whoever looks while being told finds nothing
    host.patch.buffer_changed(name);
    host.references.tell(name, buffer, unbinding);
    return true;
}

void globalsymbol_reference(Object& object, Symbol name) { object.host().references.add(name, object); }
void globalsymbol_dereference(Object& object, Symbol name) { object.host().references.remove(name, object); }

void GlobalReferences::add(Symbol name, Object& object) {
    std::vector<Referrer>& referrers = referrers_[name];
    auto own = std::ranges::find(referrers, &object, &Referrer::object);
    if (own == referrers.end())
        referrers.push_back({&object, 1});
    else
        ++own->count;
}

void GlobalReferences::remove(Symbol name, Object& object) {
    auto found = referrers_.find(name);
    if (found == referrers_.end()) return;
    auto own = std::ranges::find(found->second, &object, &Referrer::object);
    if (own == found->second.end() || --own->count > 0) return;
    found->second.erase(own);
    if (found->second.empty()) referrers_.erase(found);
}

void GlobalReferences::forget(const Object& object) {
    for (auto entry = referrers_.begin(); entry != referrers_.end();) {
        std::erase_if(entry->second, [&](const Referrer& r) { return r.object == &object; });
        entry = entry->second.empty() ? referrers_.erase(entry) : std::next(entry);
    }
}

void GlobalReferences::tell(Symbol name, Object& sender, Symbol message) const {
    auto found = referrers_.find(name);
    if (found == referrers_.end()) return;
    const std::vector<Referrer> told = found->second;  // references may come and go meanwhile
    for (const Referrer& referrer : told) referrer.object->notify({&sender, message, name});
}

}  // namespace tq
