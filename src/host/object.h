// What every object of the host has: a class, attachments to the objects that watch it, and its messages.
#pragma once

#include <vector>

#include "host/atom.h"
#include "host/symbol.h"

namespace tq {

class Class;
class Object;
struct Host;

/// What an object tells those that are attached to it.
struct Notification {
    Object* sender = nullptr;
    Symbol message;
    Symbol data;  ///< what the message is about: an attribute's name, a buffer's name
};

class Object {
 public:
    Object(Host& host, const Class& object_class) : host_(host), class_(object_class) {}
    /// Detaches from everything and takes the object's pending calls out of the scheduler.
    virtual ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    Host& host() const { return host_; }
    const Class& object_class() const { return class_; }

    /// Called for each notification of an object that this one is attached to (and of itself).
    virtual void notify(const Notification&) {}
    /// Takes a message that the class has no method for; false when it does not.
    virtual bool anything(Symbol, AtomSpan) { return false; }

 private:
    friend void object_attach_byptr(Object& watcher, Object& watched);
    friend void object_detach_byptr(Object& watcher, Object& watched);
    friend void object_notify(Object& sender, Symbol message, Symbol data);

    Host& host_;
    const Class& class_;
    std::vector<Object*> watchers_, watched_;
};

Symbol object_classname(const Object& object);
/// From now on `watcher` is notified of what `watched` tells; once, however often it is attached.
void object_attach_byptr(Object& watcher, Object& watched);
void object_detach_byptr(Object& watcher, Object& watched);
void object_notify(Object& sender, Symbol message, Symbol data);

/// Posts a line, or an error that names the object's class, on the host's console.
void object_post(const Object& object, const std::string& text);
void object_error(const Object& object, const std::string& text);

/// Sends a message: a method, an attribute's name (sets it) or "get" and an attribute's name (answers on the
/// object's dumpout). Wrong arguments and unknown messages are posted as errors; false then.
bool object_method_typed(Object& object, Symbol message, AtomSpan arguments);

}  // namespace tq
