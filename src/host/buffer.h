// Named sound buffers, and telling objects what becomes of the buffers whose names they reference.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/object.h"
#include "host/sound.h"

namespace tq {

/// An object of class "buffer~". It is bound to its name for as long as it lives.
class Buffer : public Object {
 public:
    Buffer(Host& host, Symbol name, SoundRef sound, std::string path);
    ~Buffer() override;
    Symbol name() const { return name_; }
    /// The sound; in use, and kept as it is, for as long as the reference lives.
    SoundRef use() const { return sound_; }
    /// Of the file that the sound was read from; empty: none.
    const std::string& path() const { return path_; }

 private:
    friend bool buffer_set(Host& host, Symbol name, SoundRef sound, std::string path);
    Symbol name_;
    SoundRef sound_;
    std::string path_;
};

/// The buffer bound to a name; none when nothing is, or something else.
Buffer* buffer_named(const Host& host, Symbol name);
/// Makes the buffer ("globalsymbol_binding"), or gives it another sound ("buffer_modified"). False when the
/// name is taken by something that is no buffer, or empty. The path is that of the sound's file.
bool buffer_set(Host& host, Symbol name, SoundRef sound, std::string path = {});
/// The same with the sound of a file; the reason when that failed, and then nothing has changed.
std::optional<std::string> buffer_read(Host& host, Symbol name, const std::string& path);
/// Removes the buffer ("globalsymbol_unbinding"); false when there is none.
bool buffer_remove(Host& host, Symbol name);

/// From now on `object` is notified of what becomes of the buffer of this name, whether it exists or not.
/// References are counted.
void globalsymbol_reference(Object& object, Symbol name);
void globalsymbol_dereference(Object& object, Symbol name);

/// Who references which name.
class GlobalReferences {
 public:
    void add(Symbol name, Object& object);
    void remove(Symbol name, Object& object);
    /// Drops every reference of an object that goes away.
    void forget(const Object& object);
    /// Notifies those that reference the name.
    void tell(Symbol name, Object& sender, Symbol message) const;

 private:
    struct Referrer {
        Object* object;
        long count;
    };
    std::unordered_map<Symbol, std::vector<Referrer>> referrers_;
};

}  // namespace tq
