#include "app/patch/export_meter.h"

#include <cmath>
#include <optional>

#include "instance/prseq.h"
#include "model/bars.h"

namespace tq {

namespace {

constexpr double whole_notes_a_minute = 240000;  // ms, at a tempo of 1
constexpr int most_beats = 255;

/// The signature at a tempo of a bar that lasts as long as the region's; the same beats if that goes, else
/// quarters or eighths.
std::optional<PartSignature> signature_at(const BarRegion& region, double bpm, double whole_note) {
    const double whole_notes = static_cast<double>(region.beats) / static_cast<double>(region.notevalue) *
                               whole_note * bpm / whole_notes_a_minute;
    const double unit_of_same_beats = static_cast<double>(region.beats) / whole_notes;
    for (const double unit : {unit_of_same_beats, 4., 8., 1., 2., 16., 32., 64., 128.}) {
        const double beats = whole_notes * unit;
        const bool is_unit = unit >= 1 && unit <= 128 && std::exp2(std::round(std::log2(unit))) == unit;
        if (is_unit && beats >= 1 && beats <= most_beats && std::abs(beats - std::round(beats)) < 1e-6)
            return PartSignature{0, static_cast<int>(std::lround(beats)), static_cast<int>(unit)};
    }
    return {};
}

double quarters(const PartSignature& signature) { return 4.0 * signature.beats / signature.unit; }

}  // namespace

PartMeter meter_of(const Prseq& object) {
    PartMeter meter{.bpm = itm_gettempo(*object.transport)};
    const auto add_all = [&](auto signature_of) {
        double place = 0;
        long measure = 0;
        meter.signatures.clear();
        for (const BarRegion& region : object.meter.barregions) {
            std::optional<PartSignature> signature = signature_of(region);
            if (!signature) return false;
            if (!meter.signatures.empty())
                place += static_cast<double>(region.measure - measure) * quarters(meter.signatures.back());
            measure = region.measure;
            signature->quarters = place;
            meter.signatures.push_back(*signature);
        }
        return true;
    };
    const auto as_they_are = [](const BarRegion& region) {
        const auto beats = static_cast<int>(std::min(region.beats, long{most_beats}));
        return std::optional(PartSignature{0, beats, static_cast<int>(region.notevalue)});
    };
    if (!add_all(
            [&](const BarRegion& region) { return signature_at(region, meter.bpm, object.meter.wholenote); }))
        add_all(as_they_are);
    return meter;
}

}  // namespace tq
