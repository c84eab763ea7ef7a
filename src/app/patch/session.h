// One box in its standard patch: position reports feed the transport, receivers exist as soon as they are
// named, and whatever the box says goes to those who listen.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/host.h"
#include "shell/prseq.h"

namespace tq {

/// Hears what the box says, in the order in which it is said, at the scheduler's logical time.
class SessionListener {
 public:
    virtual ~SessionListener() = default;
    virtual void outlet(int, Symbol, AtomSpan) {}
    virtual void dumpout(Symbol, AtomSpan) {}
    virtual void receiver(Symbol /*name*/, Symbol, AtomSpan) {}
    virtual void post(const std::string&) {}
    virtual void error(const Object&, const std::string&) {}
    virtual void redraw() {}
};

class Session {
 public:
    /// Whether position reports are fed back to the transport.
    bool feedback = true;

    Session();
    ~Session();

    Host& host() { return host_; }
    Prseq& box() { return *box_; }
    const Prseq& box() const { return *box_; }
    /// The listener must live as long as the session.
    void listen(SessionListener& listener) { listeners_.push_back(&listener); }
    /// Makes a relay of this name, unless there is one.
    void make_receiver(Symbol name);

    /// Sends the inlet a message in message text (a lone number is "int" or "float"), and runs what it made
    /// due.
    void send(std::string_view text);
    void send(Symbol message, AtomSpan atoms);
    /// Opens a document or a Standard MIDI File. False when it is neither; why is posted as an error.
    bool open(const std::string& path);

 private:
    void wire();
    std::unique_ptr<Object> relay(Symbol name);

    Host host_;
    std::vector<SessionListener*> listeners_;
    std::unique_ptr<Prseq> box_;
};

/// Sends what is in `text` as a message: its selector and its arguments.
struct ParsedMessage {
    Symbol selector;
    Atoms arguments;
};
/// A lone number is the message "int" or "float", several atoms that begin with a number are a "list".
ParsedMessage parse_message(std::string_view text);

}  // namespace tq
