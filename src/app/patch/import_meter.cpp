#include "app/patch/import_meter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tq {

namespace {

constexpr double tolerance_ms = 0.6;  // little more than what times are rounded by
constexpr long most_bars = 100000;
constexpr long finest_beats = 8;  // beats of the grid to one of the song

/// Regions that show bars one after the other.
class BarFitter {
 public:
    BarFitter(const MidiSong& song, double whole_note) : song_(song), whole_note_ms_(whole_note) {}

    ImportedMeter fit() {
        std::vector<TimeSignature> signatures = song_.signatures;
        if (signatures.empty() || signatures.front().tick > 0)
            signatures.insert(signatures.begin(), {0, 0, 4, 4});
        for (std::size_t i = 0; i < signatures.size(); ++i) {
            const bool last = i + 1 == signatures.size();
            bars(signatures[i], last ? song_.end : signatures[i + 1].tick, last);
        }
        return std::move(result_);
    }

 private:
    // A bar that the next signature cuts short lasts until there; the last of all is whole.
    void bars(const TimeSignature& signature, std::int64_t until, bool last) {
        const double ticks = 4.0 * song_.division * signature.beats / signature.unit;
        double begin = static_cast<double>(signature.tick);
        if (off_ && signature.tick < until) region(signature.beats, signature.unit);
        for (; begin < static_cast<double>(until) && bar_ < most_bars; begin += ticks, ++bar_) {
            const double end = last ? begin + ticks : std::min(begin + ticks, static_cast<double>(until));
            if (!off_) add(signature, ms(begin), ms(end));
        }
    }

    /// Time of a tick, which may lie between two.
    double ms(double tick) const {
        const auto after = std::ranges::upper_bound(
            song_.tempos, tick, {}, [](const TempoChange& t) { return static_cast<double>(t.tick); });
        const TempoChange& tempo = after[-1];
        return tempo.ms +
               (tick - static_cast<double>(tempo.tick)) * tempo.quarter_us / 1000.0 / song_.division;
    }

    void add(const TimeSignature& signature, double begin_ms, double end_ms) {
        const auto fits = [&](double beats, long notevalue) {
            const double end = grid_ms_ + beats / static_cast<double>(notevalue) * whole_note_ms_;
            return beats >= 1 && std::abs(end - end_ms) <= tolerance_ms;
        };
        if (!result_.regions.empty() && signature.tick == signature_tick_ &&
            fits(static_cast<double>(result_.regions.back().beats), result_.regions.back().notevalue))
            return advance();
        signature_tick_ = signature.tick;
        std::optional<BarRegion> best;
        for (long notevalue = 1; notevalue <= 128; notevalue *= 2) {
            const double beats =
                std::round((end_ms - grid_ms_) / whole_note_ms_ * static_cast<double>(notevalue));
            if (!fits(beats, notevalue)) continue;
            const BarRegion found{bar_, static_cast<long>(beats), notevalue};
            if (!best || rank(found, signature) < rank(*best, signature)) best = found;
        }
        if (!best) return give_up(signature, end_ms - begin_ms);
        if (rank(*best, signature) > finest_beats) note_beats(signature);
        region(best->beats, best->notevalue);
        advance();
    }

    /// How well the beats are shown: 1 as they are, up to `finest_beats` divided evenly, above that not.
    static long rank(const BarRegion& region, const TimeSignature& signature) {
        const long beats = signature.beats;
        if (region.beats % beats == 0 && region.beats / beats <= finest_beats) return region.beats / beats;
        return finest_beats + 1;
    }

    void advance() {
        const BarRegion& region = result_.regions.back();
        grid_ms_ +=
            static_cast<double>(region.beats) / static_cast<double>(region.notevalue) * whole_note_ms_;
    }

    void region(long beats, long notevalue) {
        auto& regions = result_.regions;
        if (regions.empty() || regions.back().beats != beats || regions.back().notevalue != notevalue)
            regions.push_back({bar_, beats, notevalue});
    }

    void note_beats(const TimeSignature& signature) {
        if (!result_.off.empty()) return;
        result_.off = fmt::format("the grid shows the bars, but not the beats, of {}/{} from bar {} on",
                                  signature.beats, signature.unit, bar_ + 1);
    }

    void give_up(const TimeSignature& signature, double bar_ms) {
        off_ = true;
        region(signature.beats, signature.unit);
        result_.off = fmt::format(
            "the grid is not that of the song from bar {} on: its bar of {}/{} lasts {:.1f} ms, one of the "
            "grid {:.1f} ms",
            bar_ + 1, signature.beats, signature.unit, bar_ms,
            static_cast<double>(signature.beats) / signature.unit * whole_note_ms_);
    }

    const MidiSong& song_;
    double whole_note_ms_;  ///< of the grid
    ImportedMeter result_;
    long bar_ = 0;
    double grid_ms_ = 0;
    std::int64_t signature_tick_ = -1;
    bool off_ = false;
};

}  // namespace

ImportedMeter meter_of(const MidiSong& song, double whole_note) {
    if (song.division == 0) return {};  // film frames know no bars
    return BarFitter(song, whole_note).fit();
}

}  // namespace tq
