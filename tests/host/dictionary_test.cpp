// Dictionaries from text: exact numbers, and what is no dictionary.
#include "host/dictionary.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>

namespace tq {
namespace {

TEST(Dictionary, readsTheNumberThatWasWritten) {
    std::mt19937_64 random(5);
    std::string fault;
    for (int i = 0; i < 20000; ++i) {
        double number = std::bit_cast<double>(random());
        if (i % 2) number = static_cast<double>(static_cast<float>(random() % 1000000) / 7919);
        if (!std::isfinite(number)) continue;
        char digits[64];
        std::string_view text(
            digits, static_cast<size_t>(std::to_chars(digits, std::end(digits), number).ptr - digits));
        auto file = dictionary_parse("{\"a\": " + std::string(text) + "}", fault);
        ASSERT_TRUE(file) << text << ": " << fault;
        ASSERT_EQ(file->root().getfloat("a"), number) << text;
    }
}

TEST(Dictionary, takesNumbersForEachOtherWhereTheyFit) {
    std::string fault;
    auto file = dictionary_parse(
        R"({"i":7,"d":-2.9,"big":1e300,"huge":1e400,"u":18446744073709551615,"t":"7","n":null,"b":true})",
        fault);
    ASSERT_TRUE(file);
    Dictionary root = file->root();
    EXPECT_EQ(root.getlong("i"), 7);
    EXPECT_EQ(root.getfloat("i"), 7.0);
    EXPECT_EQ(root.getlong("d"), -2);
    EXPECT_EQ(root.getfloat("big"), 1e300);
    for (const char* key : {"big", "huge", "u", "t", "n", "b", "missing"})
        EXPECT_FALSE(root.getlong(key)) << key;
    for (const char* key : {"huge", "t", "n", "b", "missing"}) EXPECT_FALSE(root.getfloat(key)) << key;
    EXPECT_TRUE(root.has("n"));
    EXPECT_FALSE(root.has("missing"));
}

TEST(Dictionary, refusesWhatIsNone) {
    for (const char* text : {"", " ", "{", "{\"a\":1", "{\"a\":1,}", "{} {}", "{}x", "{'a':1}", "[]", "7",
                             "\"\xff\"", "{\"\xff\":1}", "{\"a\":01}", "nan"}) {
        std::string fault;
        EXPECT_FALSE(dictionary_parse(text, fault)) << text;
        EXPECT_FALSE(fault.empty()) << text;
    }
    std::string fault;
    EXPECT_TRUE(dictionary_parse(" {} \n", fault)) << "blanks around it are fine";
}

}  // namespace
}  // namespace tq
