#include "app/patch/session.h"

#include <algorithm>

#include "instance/symbols.h"
#include "instance/utilities.h"
#include "shell/instance.h"

namespace tq {

namespace {

constexpr std::string_view receiver_schemes[] = {"gm:", "midi:", "osc:"};

bool exists_when_named(Symbol name) {
    for (std::string_view scheme : receiver_schemes)
        if (name.text().starts_with(scheme)) return true;
    return false;
}

}  // namespace

Session::Session() {
    host_.random.seed(time_seed());
    box_ = prseq_new(host_, BoxDictionary{});
    wire();
    prseq_attach_patcherview(*box_);
}

Session::~Session() {
    static_cast<PatchEars&>(host_.patch) = {};  // nobody listens to a box that goes away
    tell([](SessionListener& listener) { listener.heard_ = nullptr; });
}

SessionListener::~SessionListener() {
    if (heard_) std::ranges::replace(heard_->listeners_, this, nullptr);
}

void Session::listen(SessionListener& listener) {
    std::erase(listeners_, nullptr);
    listeners_.push_back(&listener);
    listener.heard_ = this;
}

/// By index: who is told may make others listen, or go.
template <typename What>
void Session::tell(What what) {
    for (size_t i = 0; i < listeners_.size(); ++i)
        if (listeners_[i]) what(*listeners_[i]);
}

void Session::wire() {
    host_.patch.post = [this](const Object&, const std::string& text) {
        tell([&](auto& l) { l.post(text); });
    };
    host_.patch.error = [this](const Object& object, const std::string& text) {
        tell([&](auto& l) { l.error(object, text); });
    };
    host_.patch.dumpout = [this](Object&, Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.dumpout(selector, atoms); });
    };
    host_.patch.redraw = [this](Object&) { tell([](auto& l) { l.redraw(); }); };
    host_.patch.cursor = [this](const Object&, const MouseCursor& cursor) {
        tell([&](auto& l) { l.cursor(cursor); });
    };
    host_.patch.patcher_shown = [this](Patcher& p) { tell([&](auto& l) { l.patcher_shown(p); }); };
    host_.patch.patcher_front = [this](Patcher& p) { tell([&](auto& l) { l.patcher_front(p); }); };
    host_.patch.patcher_changed = [this](Patcher& p) { tell([&](auto& l) { l.patcher_changed(p); }); };
    host_.patch.patcher_freed = [this](Patcher& p) { tell([&](auto& l) { l.patcher_freed(p); }); };
    host_.patch.field_shown = [this](const Field& f) { tell([&](auto& l) { l.field_shown(f); }); };
    host_.patch.outlet = [this](Object&, int outlet, Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.outlet(outlet, selector, atoms); });
        if (feedback && outlet == OutletSystemInfo && selector == tq_sym_ticks && !atoms.empty())
            itm_setticks(*box_->transport, atoms[0].as_double());
    };
    host_.patch.make_receiver = [this](Symbol name) -> std::unique_ptr<Object> {
        return exists_when_named(name) ? relay(name) : nullptr;
    };
}

std::unique_ptr<Object> Session::relay(Symbol name) {
    return std::make_unique<Through>(host_, name, [this, name](Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.receiver(name, selector, atoms); });
    });
}

void Session::make_receiver(Symbol name) {
    if (!name.empty() && !symbol_thing(host_, name)) host_.receivers.push_back(relay(name));
}

bool Session::call(SessionCall call) {
    if (calling_) {
        waiting_.push_back(std::move(call));
        return false;
    }
    if (host_.scheduler.running()) {
        host_.scheduler.defer_low(*box_, [this, later = std::move(call)] { perform_alone(later); });
        return false;
    }
    return perform_alone(call);
}

/// A call, and those that it made others make.
bool Session::perform_alone(const SessionCall& call) {
    calling_ = true;
    const bool done = perform_now(call);
    for (; !waiting_.empty(); waiting_.pop_front()) perform_now(waiting_.front());
    calling_ = false;
    return done;
}

bool Session::perform_now(const SessionCall& call) {
    CallListener* const listener = leaves_traces(call) ? call_listener_ : nullptr;
    if (listener) listener->calling(call);
    const bool done = perform(*this, call);
    host_.scheduler.run_due();
    if (listener) listener->called();
    return done;
}

void Session::send(std::string_view text) {
    MessageCall message = parse_message(text);
    if (call_listener_ && !message.selector.empty()) message.text = text;  // cheaper than to write it anew
    call(std::move(message));
}
void Session::send(Symbol message, AtomSpan atoms) {
    call(MessageCall{message, {atoms.begin(), atoms.end()}, {}});
}

bool Session::open(const std::string& path) { return call(OpenCall{.file = path}); }

}  // namespace tq
