// Pictures that are compared with those kept in tests/golden/.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "host/image.h"

namespace tq::test {

/// How far a channel of a pixel may be off, and how many pixels may be off further. A line that is missing,
/// also a pale one on white, is many pixels that are further off than that.
inline constexpr int near_enough = 6, stray_pixels = 12;

/// How many pixels are not near enough; all of them when the sizes differ.
inline long pixels_off(const Surface& a, const Surface& b) {
    const int width = static_cast<int>(a.size().width * a.ratio() + 0.5),
              height = static_cast<int>(a.size().height * a.ratio() + 0.5);
    if (b.size().width * b.ratio() != width || b.size().height * b.ratio() != height)
        return long{width} * height;
    long off = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const unsigned p = surface_pixel(a, x, y), q = surface_pixel(b, x, y);
            if (p == q) continue;
            bool near = true;
            for (int shift : {0, 8, 16, 24})
                near &= std::abs(static_cast<int>(p >> shift & 255) - static_cast<int>(q >> shift & 255)) <=
                        near_enough;
            off += !near;
        }
    return off;
}

/// Whether a picture looks as the one that is kept in a file. Where it does not, it is written beside the
/// tests' program, to be looked at. With SORVO_GOLDEN=write in the environment, the pictures are kept anew.
inline testing::AssertionResult looks_like_file(const Surface& picture, const std::string& name,
                                                const std::string& kept_path) {
    const std::string now = name + "-now.png";
    if (const char* mode = std::getenv("SORVO_GOLDEN"); mode && std::string(mode) == "write") {
        if (auto fault = surface_write_png(picture, kept_path)) return testing::AssertionFailure() << *fault;
        return testing::AssertionSuccess();
    }
    const SurfaceRef kept = jgraphics_image_surface_create_from_file(kept_path);
    if (!kept) return testing::AssertionFailure() << kept_path << " cannot be read";
    const long off = pixels_off(picture, *kept);
    if (off <= stray_pixels) return testing::AssertionSuccess();
    surface_write_png(picture, now);
    return testing::AssertionFailure()
           << name << ": " << off << " pixels differ; see " << now << " and " << kept_path;
}

/// The same with one of tests/golden/.
inline testing::AssertionResult looks_like(const Surface& picture, const std::string& name) {
    return looks_like_file(picture, name, std::string(SORVO_GOLDEN_FOLDER) + "/" + name + ".png");
}

}  // namespace tq::test
