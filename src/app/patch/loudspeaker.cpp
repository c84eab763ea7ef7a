#include "app/patch/loudspeaker.h"

#include "app/sound/error.h"

namespace tq {

Loudspeaker open_loudspeaker() {
    try {
        auto output = std::make_unique<AudioOutput>();
        std::string reason = output->open();
        if (!reason.empty()) return {nullptr, reason};
        return {std::move(output), ""};
    } catch (const SoundError& error) {
        return {nullptr, error.what()};
    }
}

}  // namespace tq
