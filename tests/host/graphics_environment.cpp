// Every test may draw and measure text, off screen.
#include <gtest/gtest.h>

#include "host/graphics_runtime.h"

namespace {

class DrawingEnvironment : public testing::Environment {
 public:
    void SetUp() override {
        runtime_ = std::make_unique<tq::GraphicsRuntime>(tq::GraphicsRuntime::Screen::Never);
    }
    void TearDown() override { runtime_.reset(); }

 private:
    std::unique_ptr<tq::GraphicsRuntime> runtime_;
};

const testing::Environment* const registered = testing::AddGlobalTestEnvironment(new DrawingEnvironment);

}  // namespace
