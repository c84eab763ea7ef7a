// Those who answer for files come and go in any order.
#include <gtest/gtest.h>

#include <memory>

#include "host/host.h"

namespace tq {
namespace {

struct Answerer : PatchFiles {
    Answerer(Patch& patch, std::string given) : PatchFiles(patch), name(std::move(given)) {}
    std::optional<std::string> open_dialog() override {
        return name + PatchFiles::open_dialog().value_or("");
    }
    std::string name;
};

TEST(PatchFiles, areAskedFromTheLatestOnInWhateverOrderTheyGo) {
    auto head = std::make_unique<Patch>();
    auto a = std::make_unique<Answerer>(*head, "a"), b = std::make_unique<Answerer>(*head, "b"),
         c = std::make_unique<Answerer>(*head, "c");
    EXPECT_EQ(head->open_dialog(), "cba");
    b.reset();
    EXPECT_EQ(head->open_dialog(), "ca");
    a.reset();
    EXPECT_EQ(head->open_dialog(), "c");
    head.reset();  // before one that answers
}

}  // namespace
}  // namespace tq
