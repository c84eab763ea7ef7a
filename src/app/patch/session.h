// One box in its standard patch: position reports feed the transport, receivers exist as soon as they are
// named, and whatever the box says goes to those who listen.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/patch/calls.h"
#include "host/host.h"
#include "instance/prseq.h"

namespace tq {

/// Hears what the box says, in the order in which it is said, at the scheduler's logical time.
class SessionListener {
 public:
    SessionListener() = default;
    /// Hears no more; listeners and sessions may go in any order.
    virtual ~SessionListener();
    SessionListener(const SessionListener&) = delete;
    SessionListener& operator=(const SessionListener&) = delete;
    virtual void outlet(int, Symbol, AtomSpan) {}
    virtual void dumpout(Symbol, AtomSpan) {}
    virtual void receiver(Symbol /*name*/, Symbol, AtomSpan) {}
    virtual void post(const std::string&) {}
    virtual void error(const Object&, const std::string&) {}
    virtual void redraw() {}
    virtual void cursor(const MouseCursor&) {}
    // What becomes of forms; see PatchEars.
    virtual void patcher_shown(Patcher&) {}
    virtual void patcher_front(Patcher&) {}
    virtual void patcher_changed(Patcher&) {}
    virtual void patcher_freed(Patcher&) {}
    virtual void field_shown(const Field&) {}

 private:
    friend class Session;
    Session* heard_ = nullptr;
};

/// Hears of everything that is done to the box from outside and leaves traces. With the times of these calls,
/// the random seed and what files and dialogs answered, that is all that a session depends on.
class CallListener {
 public:
    virtual ~CallListener() = default;
    /// A call begins.
    virtual void calling(const SessionCall& call) = 0;
    /// It is done.
    virtual void called() = 0;
};

class Session {
 public:
    /// Whether position reports are fed back to the transport.
    bool feedback = true;
    /// How many want what the box posts and reports to be left out by those who print.
    int hushed = 0;
    /// What receivers get now is sent to them by a call, and by no track.
    bool sending = false;

    Session();
    ~Session();

    Host& host() { return host_; }
    Prseq& box() { return *box_; }
    const Prseq& box() const { return *box_; }
    /// A listener hears one session.
    void listen(SessionListener& listener);
    /// From now on this one hears of the calls; none: nobody.
    void listen_to_calls(CallListener* listener) { call_listener_ = listener; }
    /// Makes a relay of this name, unless there is one.
    void make_receiver(Symbol name);

    /// Does something to the box that comes from outside, and runs what it made due; whether it did what it
    /// was for. A call that is made while the box is busy with another, or with what time brings, waits until
    /// that is over: the box is told one thing at a time. False then.
    bool call(SessionCall call);

    /// Sends the inlet a message in message text (a lone number is "int" or "float").
    void send(std::string_view text);
    void send(Symbol message, AtomSpan atoms);
    /// Opens a document, or a Standard MIDI File as an untitled one. False when it is neither; why is posted
    /// as an error.
    bool open(const std::string& path);

 private:
    friend class SessionListener;
    template <typename What>
    void tell(What what);
    void wire();
    bool perform_alone(const SessionCall& call);
    bool perform_now(const SessionCall& call);
    std::unique_ptr<Object> relay(Symbol name);

    Host host_;
    std::vector<SessionListener*> listeners_;  ///< null: one that is gone
    CallListener* call_listener_ = nullptr;
    bool calling_ = false;
    std::deque<SessionCall> waiting_;  ///< calls
    std::unique_ptr<Prseq> box_;
};

}  // namespace tq
