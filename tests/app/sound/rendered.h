// What a synthesiser renders, for tests to measure.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "app/sound/fluid.h"
#include "app/sound/synth.h"

namespace tq::test {

constexpr double rate = 44100;

struct Rendered {
    std::vector<float> left, right;
    /// The first and the last sample that is not silent, and the end of all when none is.
    std::size_t first() const {
        std::size_t i = 0;
        while (i < left.size() && left[i] == 0) ++i;
        return i;
    }
    std::size_t last() const {
        std::size_t i = left.size();
        while (i > 0 && left[i - 1] == 0) --i;
        return i ? i - 1 : left.size();
    }
    std::size_t peak() const {
        return static_cast<std::size_t>(
            std::ranges::max_element(left, {}, [](float s) { return std::abs(s); }) - left.begin());
    }
    double loudness(std::size_t begin, std::size_t end) const {
        double sum = 0;
        for (std::size_t i = begin; i < end; ++i) sum += left[i] * left[i];
        return std::sqrt(sum / static_cast<double>(end - begin));
    }
};

inline Rendered render(Synth& synth, std::size_t frames, std::size_t piece = 777) {
    Rendered all{std::vector<float>(frames), std::vector<float>(frames)};
    for (std::size_t i = 0; i < frames; i += piece)
        synth.render(&all.left[i], &all.right[i], static_cast<int>(std::min(piece, frames - i)));
    return all;
}

inline void hand_in(Synth& synth, const PlayedNote& note, int source = 0) {
    if (is_audible(note)) synth.note(std::make_unique<SynthNote>(synth_note(note, source, rate)));
}

}  // namespace tq::test
