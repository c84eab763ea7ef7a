// Attributes by their names: defaults, limits, queries, and what a patch saves of them.
#include <gtest/gtest.h>

#include "app/script_fixture.h"
#include "shell/instance.h"

namespace tq::test {
namespace {

struct Attributes : ScriptTest {};

struct AttributeRow {
    const char *name, *initial, *given, *stored;
};

// One of each kind, and each with limits or a default of its own.
constexpr AttributeRow rows[] = {
    {"upperdisplaycolor", "0.9 0.9 0.9 1.", "1 0 0.5", "1. 0. 0.5 1."},
    {"trackdisplaycolor", "0.74 0.76 0.81 1.", "0.1 0.2 0.3 0.4", "0.1 0.2 0.3 0.4"},
    {"menutitletextcolor", "0.26 0.26 0.26 1.", "2 -1 0 9", "1. 0. 0. 1."},
    {"linecursorcolor", "1. 0. 0. 1.", "0 0 1 1", "0. 0. 1. 1."},
    {"menufontsize", "12.", "30", "20."},
    {"event_capture_span", "60", "0", "1"},
    {"snaptime", "0", "1", "1"},
    {"snappitch", "0", "5", "1"},
    {"focusdisplay", "1", "-3", "0"},
    {"dirtydisplay", "1", "0.9", "0"},
    {"parameterdisplay", "0", "1", "1"},
    {"linecursor_update", "50.", "5", "10."},
    {"base_frequency", "440.", "442", "442."},
    {"new_track_color", "2", "7", "2"},
};

std::string dump(const AttributeRow& row, const char* value) {
    return std::string("dump ") + row.name + " " + value;
}

TEST_F(Attributes, haveTheirDefaultsAndAreHeldWithinTheirLimits) {
    for (const AttributeRow& row : rows) {
        std::string get = std::string("get") + row.name;
        EXPECT_TRUE(says(get, dump(row, row.initial)));
        EXPECT_TRUE(says(std::string(row.name) + " " + row.given + "\n" + get, dump(row, row.stored)));
    }
    EXPECT_TRUE(
        says("linecursor_update 1000\ngetlinecursor_update\nmenufontsize -4\ngetmenufontsize\n"
             "event_capture_span 99999\ngetevent_capture_span\nnew_track_color -1\ngetnew_track_color",
             "dump linecursor_update 200.\ndump menufontsize 8.\ndump event_capture_span 1000\ndump "
             "new_track_color 0"));
}

TEST_F(Attributes, refuseWhatDoesNotFit) {
    for (const AttributeRow& row : rows) {
        std::string name = row.name,
                    complaint = "error tq.sorvo: bad arguments for attribute \"" + name + "\"";
        EXPECT_TRUE(says(name + "\n" + name + " word\nget" + name,
                         complaint + "\n" + complaint + "\n" + dump(row, row.initial)));
    }
    EXPECT_TRUE(says("linecursorcolor 1 1\nlinecursorcolor 1 1 1 1 1\nlinecursorcolor 1 1 red", "error",
                     "error tq.sorvo: bad arguments for attribute \"linecursorcolor\"\n"
                     "error tq.sorvo: bad arguments for attribute \"linecursorcolor\"\n"
                     "error tq.sorvo: bad arguments for attribute \"linecursorcolor\""));
}

TEST_F(Attributes, comeBackWithThePatch) {
    for (const AttributeRow& row : rows) say(std::string(row.name) + " " + row.given);
    Host host;
    auto again = prseq_new(host, prseq_save(box()));
    for (const AttributeRow& row : rows) {
        const Attribute* attribute = prseq_class().find_attribute(gensym(row.name));
        ASSERT_TRUE(attribute) << row.name;
        EXPECT_EQ(atom_gettext(attribute->read(*again)), row.stored) << row.name;
    }
    BoxDictionary some{
        {gensym("snaptime"), {1L}}, {gensym("base_frequency"), {442.0}}, {gensym("unknown"), {1L}}};
    auto other = prseq_new(host, some);
    EXPECT_TRUE(other->snaptime);
    EXPECT_EQ(other->base_frequency, 442);
    EXPECT_EQ(other->menufontsize, 12);
}

TEST_F(Attributes, areOverwrittenByADocument) {
    say("showbuffers 0");
    read_document(
        R"({"tq.sorvo":"","header":{"fileversion":100},"showlabels":0,"showallbpfs":0,"showbuffers":7})");
    EXPECT_TRUE(says("getshowlabels\ngetshowmessages\ngetdisplay_all_bpfs\ngetshowbuffers",
                     "dump showlabels 0\ndump showmessages 1\ndump display_all_bpfs 0\ndump showbuffers 1"));
}

TEST_F(Attributes, setTheIntervalOfTheLineCursor) {
    say("linecursor_update 200\n1\n.wait 199");
    EXPECT_EQ(box().linecursor.position, 0);
    say(".wait 1");
    EXPECT_EQ(box().linecursor.position, 200);
    say("0\n.wait 500");
    EXPECT_EQ(box().linecursor.position, 200);
}

}  // namespace
}  // namespace tq::test
