#include "instance/utilities.h"

#include <cmath>
#include <ctime>

#include "host/resources.h"
#include "host/round.h"
#include "instance/prseq.h"

namespace tq {

double TQ_Utilities_ConvertMidiToHz(const Prseq& object, double pitch) {
    return object.base_frequency * std::exp2((pitch - 69) / 12);
}

double TQ_Utilities_ConvertHzToMidi(const Prseq& object, double frequency) {
    return 69 + 12 * std::log(frequency / object.base_frequency) / std::log(2.0);
}

double TQ_Utilities_RoundValueWithSteps(double value, double range, long steps) {
    if (steps < 2) return value;
    double step = range / static_cast<double>(steps - 1);
    return jgraphics_round(value / step) * step;
}

double TQ_Utilities_NearestValue(double value, const StepRecord& record) {
    double range = record.maximum - record.minimum;
    return record.minimum + TQ_Utilities_RoundValueWithSteps(value - record.minimum, range, record.steps + 1);
}

std::uint32_t time_seed() {
    auto seconds = static_cast<std::uint32_t>(std::time(nullptr));
    std::uint32_t seed = 0;
    for (int shift = 0; shift < 32; shift += 8) seed = seed * 257 + ((seconds >> shift) & 0xFF);
    return seed;
}

long TQ_Prseq_Utilities_IncreaseEventID(Prseq& object) { return ++object.eventcounter; }

Symbol TQ_Prseq_Utilities_GetBundledResourcesPathFromFilename(Symbol filename) {
    constexpr size_t longest_path = 2048;
    const std::string folder = resources_folder().string();
    if (folder.empty() || folder.size() > longest_path) return {};
    return gensym(cut_text(folder + "/" + filename.text(), longest_path));
}

std::string cut_text(const std::string& text, size_t bytes) {
    if (text.size() <= bytes) return text;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;
    return text.substr(0, bytes);
}

long whole_ms(double ms) {
    constexpr double limit = 9.0e18;
    return ms >= limit    ? static_cast<long>(limit)
           : ms <= -limit ? -static_cast<long>(limit)
           : ms == ms     ? static_cast<long>(ms)
                          : 0;
}

}  // namespace tq
