#include "app/patch/receivers.h"

#include <charconv>
#include <string_view>
#include <vector>

namespace tq {

namespace {

constexpr std::string_view scheme = "gm:";
constexpr std::string_view drums = "drums";

std::optional<int> number(std::string_view text) {
    int value = -1;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool valid = fault == std::errc() && end == text.data() + text.size() && value >= 0 && value <= 127;
    return valid ? std::optional(value) : std::nullopt;
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> result;
    for (size_t colon = 0; colon != text.npos;) {
        colon = text.find(':');
        result.push_back(text.substr(0, colon));
        if (colon != text.npos) text.remove_prefix(colon + 1);
    }
    return result;
}

}  // namespace

std::optional<Voice> voice_of_receiver(const std::string& name) {
    if (!name.starts_with(scheme)) return {};
    std::vector<std::string_view> parts = words(std::string_view(name).substr(scheme.size()));
    Voice voice{.drums = parts.front() == drums};
    if (voice.drums) parts.erase(parts.begin());
    int* const melodic[] = {&voice.program, &voice.bank, &voice.fine_bank};
    if (parts.size() > (voice.drums ? 1 : std::size(melodic))) return {};
    for (size_t i = 0; i < parts.size(); ++i) {
        const std::optional<int> value = number(parts[i]);
        if (!value) return {};
        *melodic[i] = *value;
    }
    return voice;
}

std::string receiver_of_voice(const Voice& voice) {
    std::string name(scheme);
    if (voice.drums) {
        name += drums;
        return voice.program == 0 ? name : name + ':' + std::to_string(voice.program);
    }
    name += std::to_string(voice.program);
    if (voice.bank > 0 || voice.fine_bank > 0) name += ':' + std::to_string(voice.bank);
    return voice.fine_bank == 0 ? name : name + ':' + std::to_string(voice.fine_bank);
}

}  // namespace tq
