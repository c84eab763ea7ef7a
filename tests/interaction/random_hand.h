// A hand that a seed leads: gestures, keys, menus and commands, all as calls from outside.
#pragma once

#include <random>
#include <string>

#include "app/patch/session.h"

namespace tq::test {

/// It answers the menus that it opens, so it is made before anybody else who does.
class RandomHand : private PatchFiles {
 public:
    RandomHand(Session& session, std::mt19937& random)
        : PatchFiles(session.host().patch), session_(session), random_(random) {}

    /// Something that the history covers, as a whole: a gesture in the main display, in the parameter display
    /// or on a track's name, a key, a command.
    void edit();
    /// Anything that a hand can do, ends of gestures left out now and then.
    void act();

 private:
    std::optional<size_t> popup(std::span<const PopupItem> items, Point) override;

    size_t below(size_t count) { return random_() % count; }
    double number(size_t count) { return static_cast<double>(below(count)); }
    bool chance(size_t of) { return below(of) == 0; }
    void call(const SessionCall& call) { session_.call(call); }
    void command(const std::string& name) { call(CommandCall{name}); }
    void wait(double ms);

    Event* any_event();
    Point any_place();
    Point place_on(const Event& event);
    Point near_a_point(const Event& event);
    void gesture(Point from, bool right = false);
    void gesture_in_a_mode();
    void gesture_in_the_lane();
    void press_a_track();
    void press_somewhere();
    void press_a_key();
    void edit_by_command();
    void any_command();
    void turn_the_wheel();
    /// In one of the inspectors; only what the history covers, when asked for.
    void edit_a_field(bool undoable_only);
    void change_field(const std::string& name, const Field& field);
    Atom any_cell(const TableColumn& column);
    void close_an_inspector();

    Session& session_;
    std::mt19937& random_;
};

}  // namespace tq::test
