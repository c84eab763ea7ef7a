// Turns what the box sends while it plays into notes for the players.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/patch/session.h"
#include "app/sound/player.h"

namespace tq {

/// Hands the notes of outlet 0 and of "gm:" receivers to every player, with the logical time at which they
/// left, but for those of tracks that are not solo
/// while others are. What an event plays of a buffer goes with its note. A jump of the play position ends
/// what sounds, and muting a track what sounds of it.
class NoteListener : public SessionListener {
 public:
    explicit NoteListener(Session& session) : session_(session) { session.listen(*this); }
    /// The player must live as long as the session.
    void add(Player& player) { players_.push_back(&player); }

    void outlet(int outlet, Symbol selector, AtomSpan atoms) override;
    void receiver(Symbol name, Symbol selector, AtomSpan atoms) override;

    /// The names of the tracks that notes come from.
    std::map<long, std::string> track_names() const;

 private:
    double now() const { return session_.host().scheduler.now(); }
    std::optional<PlayedNote> note_of(AtomSpan arguments) const;
    void play(AtomSpan arguments, const Voice& voice, const std::string& source, long track);
    bool silenced(long track) const;
    double exact_duration(double told) const;
    void mute(AtomSpan atoms);
    long track_that_plays() const;

    Session& session_;
    std::vector<Player*> players_;
};

}  // namespace tq
