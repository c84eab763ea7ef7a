#include "app/patch/session.h"

#include "app/patch/import.h"
#include "shell/instance.h"
#include "shell/symbols.h"
#include "shell/utilities.h"

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
}

Session::~Session() {
    host_.patch = Patch();  // nobody listens to a box that goes away
}

void Session::wire() {
    auto tell = [this](auto what) {
        for (SessionListener* listener : listeners_) what(*listener);
    };
    host_.patch.post = [tell](const Object&, const std::string& text) {
        tell([&](auto& l) { l.post(text); });
    };
    host_.patch.error = [tell](const Object& object, const std::string& text) {
        tell([&](auto& l) { l.error(object, text); });
    };
    host_.patch.dumpout = [tell](Object&, Symbol selector, AtomSpan atoms) {
        tell([&](auto& l) { l.dumpout(selector, atoms); });
    };
    host_.patch.redraw = [tell](Object&) { tell([](auto& l) { l.redraw(); }); };
    host_.patch.outlet = [this, tell](Object&, int outlet, Symbol selector, AtomSpan atoms) {
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
        for (SessionListener* listener : listeners_) listener->receiver(name, selector, atoms);
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
    const bool done = perform_alone(call);
    return done;
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
    if (call_listener_) call_listener_->calling(call);
    const bool done = perform(*this, call);
    host_.scheduler.run_due();
    if (call_listener_) call_listener_->called();
    return done;
}

void Session::send(std::string_view text) { call(parse_message(text)); }
void Session::send(Symbol message, AtomSpan atoms) {
    call(MessageCall{message, {atoms.begin(), atoms.end()}});
}

bool Session::open(const std::string& path) {
    return is_midi_file(path) ? call(ImportCall{path}) : call(OpenCall{path});
}

}  // namespace tq
