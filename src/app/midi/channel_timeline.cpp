#include "app/midi/channel_timeline.h"

#include <algorithm>
#include <iterator>

namespace tq {

namespace {

using ChangeList = std::vector<ChannelChange>;

constexpr int middle_of_wheel = 8192;
constexpr int no_tuning = 6400;
constexpr int usual_range = 200;  // cents
constexpr int first_key_pressure = 256;

bool earlier(const ChannelChange& a, const ChannelChange& b) {
    return a.tick != b.tick ? a.tick < b.tick : a.position < b.position;
}

void add_step(Steps& steps, Step step, double initial) {
    if (!steps.empty() && steps.back().tick == step.tick) steps.pop_back();
    if (step.value != (steps.empty() ? initial : steps.back().value)) steps.push_back(step);
}

// The wheel's, the range's and the tuning's changes, merged.
Steps bend_steps(const ChangeList& wheel, const ChangeList& ranges, const ChangeList& tunings) {
    ChangeList bent;
    std::ranges::merge(wheel, ranges, std::back_inserter(bent), earlier);
    ChangeList changes;
    std::ranges::merge(bent, tunings, std::back_inserter(changes), earlier);
    Steps steps;
    double position = 0;
    double range = usual_range / 100.;
    double tuning = 0;
    for (const ChannelChange& change : changes) {
        if (change.what == ChannelChange::Bend)
            position = (change.value - middle_of_wheel) / double{middle_of_wheel};
        if (change.what == ChannelChange::Range) range = change.value / 100.0;
        if (change.what == ChannelChange::Tuning) tuning = (change.value - no_tuning) / 100.0;
        add_step(steps, {change.tick, position * range + tuning}, 0);
    }
    return steps;
}

// Those among `all` that are in effect when one of `those` comes; so the work is in proportion to `those`,
// however long the other list is.
ChangeList in_effect(const ChangeList& those, const ChangeList& all) {
    ChangeList result;
    for (const ChannelChange& change : those) {
        const auto after = std::ranges::upper_bound(all, change.tick, {}, &ChannelChange::tick);
        if (after == all.begin()) continue;
        result.push_back(*std::prev(after));
        result.back().tick = change.tick;
        result.back().position = change.position;
    }
    return result;
}

// Each program with the bank that was chosen before it.
std::vector<ProgramStep> program_steps(const ChangeList& programs, const ChangeList& banks) {
    std::vector<ProgramStep> steps;
    for (const ChannelChange& program : programs) {
        const auto after = std::ranges::upper_bound(banks, program, earlier);
        const int bank = after == banks.begin() ? 0 : std::prev(after)->value;
        steps.push_back({program.tick, program.position, program.value, bank});
    }
    return steps;
}

constexpr bool of_key(int what) { return what >= first_key_pressure; }

int controller_of(int what) { return of_key(what) ? int{KeyPressure} : what; }

Steps controller_steps(int what, const ChangeList& changes) {
    Steps steps;
    for (const ChannelChange& change : changes)
        add_step(steps, {change.tick, static_cast<double>(of_key(what) ? change.value & 0x7f : change.value)},
                 controller_initial(controller_of(what)));
    return steps;
}

bool is_controller(int what) { return what < controller_count || of_key(what); }

}  // namespace

void Timelines::add(Changes& changes, const ChannelChange& change) {
    changes[change.what == KeyPressure ? first_key_pressure + (change.value >> 7) : change.what].push_back(
        change);
}

const ChangeList& Timelines::list(const Changes& changes, int what) {
    static const ChangeList none;
    const auto found = changes.find(what);
    return found == changes.end() ? none : found->second;
}

Timelines::Timelines(const RawFile& file) : shared_(std::size_t{128} * 16) {
    for (const RawTrack& track : file.tracks)
        for (const ChannelChange& change : track.changes)
            add(shared_[static_cast<std::size_t>(track.port) * 16 + change.channel].changes, change);
    for (Shared& shared : shared_)
        for (auto& [what, changes] : shared.changes) std::ranges::sort(changes, earlier);
}

void Timelines::enter(const RawTrack& track) {
    for (Changes& channel : own_) channel.clear();
    for (const ChannelChange& change : track.changes) add(own_[change.channel], change);
    first_shared_ = static_cast<std::size_t>(track.port) * 16;
}

// All that a track says, everybody says, so own words take the place of the shared ones.
ChannelTimeline Timelines::channel(int channel) {
    const auto at = static_cast<std::size_t>(channel);
    Shared& shared = shared_[first_shared_ + at];
    if (!shared.worked) shared.worked = work_out(shared.changes);
    own_worked_ = work_out(own_[at], shared.changes);
    ChannelTimeline timeline;
    timeline.programs = own_worked_.programs.empty() ? shared.worked->programs : own_worked_.programs;
    timeline.bends = own_worked_.bends ? *own_worked_.bends : *shared.worked->bends;
    for (const auto& [what, steps] : shared.worked->controllers) {
        const auto own = own_worked_.controllers.find(what);
        timeline.controllers.push_back(
            {.controller = controller_of(what),
             .key = of_key(what) ? what - first_key_pressure : ControllerSteps::all_keys,
             .steps = own == own_worked_.controllers.end() ? steps : own->second});
    }
    return timeline;
}

Timelines::Worked Timelines::work_out(const Changes& changes) {
    Worked worked;
    worked.programs =
        program_steps(list(changes, ChannelChange::Program), list(changes, ChannelChange::Bank));
    // At one tick another track's program comes before the note: the order of tracks means nothing.
    for (ProgramStep& step : worked.programs) step.position = 0;
    worked.bends = bend_steps(list(changes, ChannelChange::Bend), list(changes, ChannelChange::Range),
                              list(changes, ChannelChange::Tuning));
    for (const auto& [what, those] : changes)
        if (is_controller(what)) worked.controllers[what] = controller_steps(what, those);
    return worked;
}

Timelines::Worked Timelines::work_out(const Changes& own, const Changes& shared) {
    Worked worked;
    const auto own_or_shared = [&](const ChangeList& those, int what) {
        const ChangeList& mine = list(own, what);
        return mine.empty() ? in_effect(those, list(shared, what)) : mine;
    };
    const ChangeList& programs = list(own, ChannelChange::Program);
    worked.programs = program_steps(programs, own_or_shared(programs, ChannelChange::Bank));
    const ChangeList& wheel = list(own, ChannelChange::Bend);
    if (!wheel.empty())
        worked.bends = bend_steps(wheel, own_or_shared(wheel, ChannelChange::Range),
                                  own_or_shared(wheel, ChannelChange::Tuning));
    for (const auto& [what, those] : own)
        if (is_controller(what)) worked.controllers[what] = controller_steps(what, those);
    return worked;
}

}  // namespace tq
