// Documents that are none, and targets that cannot be written.
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <boost/json.hpp>
#include <cstring>
#include <random>

#include "app/script_fixture.h"
#include "file/random_document.h"
#include "fuzz.h"
#include "model/holds_together.h"

namespace json = boost::json;

namespace tq::test {
namespace {

struct Faults : ScriptTest {
    /// Reads a document of this text; the errors, without the path in them.
    Lines read(const std::string& text) {
        Lines errors = say("read \"" + folder.file_with("f.json", text) + "\"", "error");
        for (std::string& error : errors)
            if (size_t at = error.find(folder.path.string()); at != error.npos)
                error.erase(at, folder.path.string().size() + 1);
        return errors;
    }
};

TEST_F(Faults, areNamed) {
    for (auto [text, error] :
         {std::pair{"", "could not read \"f.json\": incomplete JSON at byte 0"},
          {"{\"tq.sorvo\":", "could not read \"f.json\": incomplete JSON at byte 12"},
          {"[1]", "could not read \"f.json\": it holds no dictionary"},
          {"{}", "The file \"f.json\" is not a tq.sorvo file"},
          {R"({"header":{"fileversion":100},"tracks":[{"name":"A"}]})",
           "The file \"f.json\" is not a tq.sorvo file"},
          {R"({"tq.sorvo":""})", "Bad File Version"},
          {R"({"tq.sorvo":"","header":7})", "Bad File Version"},
          {R"({"tq.sorvo":"","header":{}})", "Bad File Version"},
          {R"({"tq.sorvo":"","header":{"fileversion":101}})", "Bad File Version"},
          {R"({"tq.sorvo":"","header":{"fileversion":"100"}})", "Bad File Version"},
          {R"({"tq.sorvo":"","header":{"fileversion":100},"meters":[{"measure":1,"beats":4,"notevalue":3}]})",
           "bad value"}}) {
        say("track_add Old");
        EXPECT_EQ(read(text), lines_of(std::string("error tq.sorvo: ") + error)) << text;
        EXPECT_TRUE(box().tracks.empty()) << text;
        EXPECT_FALSE(prseq_getdirtyflag(box())) << text;
    }
}

TEST_F(Faults, ofThePathAreNamed) {
    EXPECT_TRUE(
        says("read nowhere.json", "error", "error tq.sorvo: The file \"nowhere.json\" could not be found"));
    EXPECT_TRUE(says("read \"" + folder.path.string() + "\"", "error",
                     "error tq.sorvo: could not read \"" + folder.path.string() + "\": Is a directory"));
    for (const char* opening : {"[", "{\"a\":"}) {
        std::string deep = R"({"tq.sorvo":)";
        for (int i = 0; i < 200000; ++i) deep += opening;
        Lines errors = read(deep);
        ASSERT_EQ(errors.size(), 1u);
        EXPECT_TRUE(errors[0].starts_with("error tq.sorvo: could not read \"f.json\": ")) << errors[0];
    }
}

/// Calls visit(value) for every value of a document, however deep, and puts back what the visit changed.
template <typename Visit>
void for_each_value(json::value& value, const Visit& visit) {
    auto with = [&](json::value& child) {
        json::value kept = child;
        visit(child);
        child = kept;
        for_each_value(child, visit);
    };
    if (json::object* object = value.if_object())
        for (auto& entry : *object) with(entry.value());
    else if (json::array* array = value.if_array())
        for (json::value& child : *array) with(child);
}

TEST_F(Faults, inAnyOneValueLeaveADocumentThatHoldsTogether) {
    const char* const strange[] = {
        "null", "true", "\"text\"", "-1",   "1e308", "-1e308", "9223372036854775807", "18446744073709551615",
        "0.5",  "[]",   "{}",       "[{}]", "[[1]]"};
    json::value root = json::parse(good_document);
    size_t documents = 0;
    for_each_value(root, [&](json::value& value) {
        for (const char* text : strange) {
            value = json::parse(text);
            std::string document = json::serialize(root);
            read(document);
            ASSERT_TRUE(holds_together(box())) << document;
            if (++documents % 16 == 0) say(".show document\n.paint");
        }
    });
    EXPECT_GT(documents, 900u);
}

TEST_F(Faults, ofAKeyThatIsMissingLeaveADocumentThatHoldsTogether) {
    json::value root = json::parse(good_document);
    size_t documents = 0;
    auto without_each_key = [&](json::value& value) {
        if (!value.is_object()) return;
        const json::object whole = value.get_object();
        for (const auto& entry : whole) {
            value.get_object().erase(entry.key());
            read(json::serialize(root));
            ASSERT_TRUE(holds_together(box())) << json::serialize(root);
            ++documents;
            value = whole;
        }
    };
    without_each_key(root);
    for_each_value(root, without_each_key);
    EXPECT_GT(documents, 70u);
}

TEST_F(Faults, inTheBytesAreOneErrorOrADocument) {
    std::mt19937 random(static_cast<unsigned>(std::chrono::system_clock::now().time_since_epoch().count()));
    size_t documents = 0, refused = 0;
    for (const auto end = end_of_fuzzing(); documents < 200 || std::chrono::steady_clock::now() < end;
         ++documents) {
        const std::string text = broken(good_document, "0123456789-.eE\"{}[],:", random);
        Lines errors = read(text);
        refused += !errors.empty();
        ASSERT_TRUE(holds_together(box())) << text;
    }
    EXPECT_GT(refused, documents / 10) << "of " << documents;
    EXPECT_LT(refused, documents);
}

TEST_F(Faults, inWritingLeaveTheOldFileAndTheDirtyFlag) {
    std::filesystem::create_directory(folder.path / "folder");
    for (auto [name, reason] : {std::pair{folder.file("folder"), "Is a directory"},
                                {folder.file("none/d.json"), "No such file or directory"},
                                {folder.file(std::string(300, 'x')), "File name too long"}}) {
        say("event start 0");
        EXPECT_TRUE(says("write \"" + name + "\"", "error",
                         "error tq.sorvo: could not write \"" + name + "\": " + reason));
        EXPECT_TRUE(says("getdirty", "dump dirty 1"));
    }
}

TEST_F(Faults, ofAFullDiskLeaveTheOldFile) {
    std::filesystem::create_directory(folder.path / "small");
    std::string disk = folder.file("small");
    if (::mount("none", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "no small disk to be had: " << std::strerror(errno);
    say("event start 5 label old\nwrite \"" + disk + "/d.json\"");
    std::string old = text_of_file(disk + "/d.json");
    EXPECT_NE(old.find("\"old\""), old.npos);
    say("event start 6 label " + std::string(100000, 'x'));
    EXPECT_TRUE(says("write \"" + disk + "/d.json\"", "error",
                     "error tq.sorvo: could not write \"" + disk + "/d.json\": No space left on device"));
    EXPECT_EQ(text_of_file(disk + "/d.json"), old);
    EXPECT_TRUE(says("getdirty", "dump dirty 1"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk), {}), 1) << "nothing is left beside it";
    ::umount(disk.c_str());
}

}  // namespace
}  // namespace tq::test
