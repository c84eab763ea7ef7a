#include "host/object.h"

#include <algorithm>

#include "host/class.h"
#include "host/host.h"

namespace tq {

Object::~Object() {
    for (Object* watched : watched_) std::erase(watched->watchers_, this);
    for (Object* watcher : watchers_) std::erase(watcher->watched_, this);
    host_.scheduler.forget(*this);
    host_.references.forget(*this);
}

Symbol object_classname(const Object& object) { return object.object_class().name(); }

void object_attach_byptr(Object& watcher, Object& watched) {
    if (std::find(watched.watchers_.begin(), watched.watchers_.end(), &watcher) != watched.watchers_.end())
        return;
    watched.watchers_.push_back(&watcher);
    watcher.watched_.push_back(&watched);
}

void object_detach_byptr(Object& watcher, Object& watched) {
    std::erase(watched.watchers_, &watcher);
    std::erase(watcher.watched_, &watched);
}

void object_notify(Object& sender, Symbol message, Symbol data) {
    // By index: a watcher may attach or detach while it is being told.
    for (size_t i = 0; i < sender.watchers_.size(); ++i)
        sender.watchers_[i]->notify({&sender, message, data});
}

void object_post(const Object& object, const std::string& text) { object.host().patch.post(object, text); }
void object_error(const Object& object, const std::string& text) { object.host().patch.error(object, text); }

}  // namespace tq
