#include "app/patch/receivers.h"

#include <gtest/gtest.h>

namespace tq {
namespace {

TEST(Receivers, nameTheBuiltInSounds) {
    const std::pair<const char*, Voice> names[] = {
        {"gm:0", {}},
        {"gm:127", {.program = 127}},
        {"gm:48:8", {.program = 48, .bank = 8}},
        {"gm:48:8:1", {.program = 48, .bank = 8, .fine_bank = 1}},
        {"gm:48:0:1", {.program = 48, .fine_bank = 1}},
        {"gm:drums", {.drums = true}},
        {"gm:drums:25", {.program = 25, .drums = true}},
    };
    for (const auto& [name, voice] : names) {
        EXPECT_EQ(voice_of_receiver(name), voice) << name;
        EXPECT_EQ(receiver_of_voice(voice), name);
    }
    for (const char* name : {"", "gm:", "gm:128", "gm:-1", "gm:1x", "gm:drums:", "gm:drums:1:2", "gm:1:2:3:4",
                             "gm:1:", "gm::1", "midi:1", "GM:1"})
        EXPECT_FALSE(voice_of_receiver(name)) << name;
}

}  // namespace
}  // namespace tq
