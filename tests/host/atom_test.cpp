// Message text: what it becomes, and what it was.
#include "host/atom.h"

#include <gtest/gtest.h>

namespace tq {
namespace {

TEST(Atom, isReadFromTextAndWrittenAsText) {
    for (auto [text, again] : {std::pair{"", ""},
                               {" \t a  b\r\n", "a b"},
                               {"1 -2 +3", "1 -2 3"},
                               {"1. .5 -1.25 1e3", "1. 0.5 -1.25 1000."},
                               {"1e30", "1.e+30"},
                               {"0.1", "0.1"},
                               {"16777217.", "16777216."},
                               {"1e39", "1e39"},
                               {"nan inf -inf 0x10 1x - + .", "nan inf -inf 0x10 1x - + ."},
                               {"9223372036854775807", "9223372036854775807"},
                               {"9223372036854775808", "9.223372e+18"},
                               {"\"two words\" \"\" \"7\" \\8", "\"two words\" \"\" \"7\" \"8\""},
                               {"\"a\\\"b\\\\c\"", "\"a\\\"b\\\\c\""},
                               {"a\"b c\"d", "\"ab cd\""},
                               {"\"open end", "\"open end\""},
                               {"a;b,c", "\"a;b,c\""},
                               {"end\\", "\"end\\\\\""}}) {
        std::string once = atom_gettext(atom_setparse(text));
        EXPECT_EQ(once, again) << "from " << text;
        EXPECT_EQ(atom_setparse(once), atom_setparse(text)) << "text and back: " << text;
    }
}

TEST(Atom, isCutToWhatALongHolds) {
    EXPECT_EQ(Atom(1e30).as_long(), 9223372036854775807);
    EXPECT_EQ(Atom(-1e30).as_long(), -9223372036854775807 - 1);
    EXPECT_EQ(Atom(-2.9).as_long(), -2);
    EXPECT_FALSE(Atom(1.0) == Atom(1L));
}

}  // namespace
}  // namespace tq
