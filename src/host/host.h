// One running host: logical time, the patch that stands around the boxes, and the objects with a name.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <unordered_map>

#include "host/buffer.h"
#include "host/mouse_cursor.h"
#include "host/object.h"
#include "host/patch_files.h"
#include "host/patcher.h"
#include "host/patcher_view.h"
#include "host/scheduler.h"
#include "host/transport.h"

namespace tq {

/// What the surroundings of the boxes do with what the boxes say. Every member may be left as it is.
struct PatchEars {
    std::function<void(const Object&, const std::string&)> post = [](auto&&...) {};
    std::function<void(const Object&, const std::string&)> error = [](auto&&...) {};
    /// A message out of an outlet; a plain list has the selector "list".
    std::function<void(Object&, int outlet, Symbol selector, AtomSpan)> outlet = [](auto&&...) {};
    std::function<void(Object&, Symbol selector, AtomSpan)> dumpout = [](auto&&...) {};
    std::function<void(Object&)> redraw = [](auto&&...) {};
    /// The pointer over the box is to look like this.
    std::function<void(const Object&, const MouseCursor&)> cursor = [](auto&&...) {};
    /// What becomes of forms: a window is to show a patcher, to come to the front, to show that boxes are hidden
    /// or fields have other values, and to go.
    std::function<void(Patcher&)> patcher_shown = [](auto&&...) {};
    std::function<void(Patcher&)> patcher_front = [](auto&&...) {};
    std::function<void(Patcher&)> patcher_changed = [](auto&&...) {};
    std::function<void(Patcher&)> patcher_freed = [](auto&&...) {};
    std::function<void(const Field&)> field_shown = [](auto&&...) {};
    /// The screen's, in pixels.
    Size display_size{1920, 1080};
    /// Makes the object behind a name that nobody has bound yet (a receiver that exists as soon as it is
    /// named), or none.
    std::function<std::unique_ptr<Object>(Symbol)> make_receiver = [](auto&&...) { return nullptr; };
    /// A document begins to use the buffer of this name: the chance to make it.
    std::function<void(Symbol)> want_buffer = [](auto&&...) {};
    /// The buffer of this name has come, gone, or got another sound.
    std::function<void(Symbol)> buffer_changed = [](auto&&...) {};
};

/// The surroundings of the boxes.
struct Patch : PatchFiles, PatchEars {};

struct Host {
    Scheduler scheduler;
    Patch patch;
    GlobalReferences references;
    std::minstd_rand random;  ///< numbers from 1 to 2147483646
    std::map<std::string, std::unique_ptr<Itm>> transports;
    std::unordered_map<Symbol, Object*> things;      ///< the objects bound to a name
    std::vector<std::unique_ptr<Object>> receivers;  ///< those that make_receiver made
    std::unordered_map<Symbol, std::unique_ptr<Buffer>> buffers;
    PatcherView view{*this};

    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

/// The object bound to a name; made when the patch knows how; none for the empty symbol.
Object* symbol_thing(Host& host, Symbol name);

/// A relay behind a name: what is sent to it goes to whoever listens to that name.
class Through : public Object {
 public:
    using Listener = std::function<void(Symbol selector, AtomSpan)>;
    /// Binds itself to `name` for as long as it lives.
    Through(Host& host, Symbol name, Listener listener);
    ~Through() override;
    bool anything(Symbol selector, AtomSpan atoms) override;

 private:
    Symbol name_;
    Listener listener_;
};

}  // namespace tq
