// Documents that are none, and targets that cannot be written.
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <boost/json.hpp>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

#include "app/script_fixture.h"
#include "file/random_document.h"

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
    testing::AssertionResult holds_together() {
        for (const TrackRef& track : box().tracks) {
            const Event* before = nullptr;
            testing::AssertionResult result = testing::AssertionSuccess();
            track->events.for_each([&](const Event& event) {
                if (before &&
                    (before->start > event.start || (before->start == event.start && before->id >= event.id)))
                    result = testing::AssertionFailure() << "event " << event.id << " is out of order";
                if (event.bpfs.size() != track->bpftypes.size())
                    result = testing::AssertionFailure()
                             << event.bpfs.size() << " curves for " << track->bpftypes.size() << " types";
                for (const BpfRef& bpf : event.bpfs) {
                    const BpfPoints& points = bpf->points;
                    bool ends = points.size() >= 2 && points.front().x == 0 && points.back().x == 1;
                    if (!ends || !std::is_sorted(points.begin(), points.end(),
                                                 [](auto& a, auto& b) { return a.x < b.x; }))
                        result = testing::AssertionFailure() << "a curve does not go from 0 to 1";
                }
                if (event.track != track.get())
                    result = testing::AssertionFailure() << "an event knows another track";
                before = &event;
            });
            if (!result) return result;
        }
        bool active = box().tracks.empty()
                          ? box().activetrack == -1
                          : box().activetrack >= 0 && box().activetrack < std::ssize(box().tracks);
        if (!active)
            return testing::AssertionFailure()
                   << "active track " << box().activetrack << " of " << box().tracks.size();
        if (!std::isfinite(box().timelinelength) || box().timelinelength <= 0)
            return testing::AssertionFailure() << "a timeline of " << box().timelinelength;
        return testing::AssertionSuccess();
    }
};

TEST_F(Faults, areNamed) {
    struct Row {
        const char *text, *error;
    };
    for (const Row& row :
         {Row{"", "could not read \"f.json\": incomplete JSON at byte 0"},
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
        EXPECT_EQ(read(row.text), lines_of(std::string("error tq.sorvo: ") + row.error)) << row.text;
        EXPECT_TRUE(box().tracks.empty()) << row.text;
        EXPECT_FALSE(box().info.dirty) << row.text;
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
            ASSERT_TRUE(holds_together()) << document;
            if (++documents % 16 == 0) say(".show document\n.paint");
        }
    });
    EXPECT_GT(documents, 900u);
}

TEST_F(Faults, ofAKeyThatIsMissingLeaveADocumentThatHoldsTogether) {
    json::value root = json::parse(good_document);
    size_t documents = 0;
    auto each_object = [&](auto&& self, json::value& value) -> void {
        if (json::object* object = value.if_object()) {
            for (size_t i = 0; i < object->size(); ++i) {
                json::object kept = *object;
                object->erase(std::next(object->begin(), static_cast<long>(i))->key());
                read(json::serialize(root));
                ASSERT_TRUE(holds_together()) << json::serialize(root);
                ++documents;
                *object = kept;
            }
            for (auto& entry : *object) self(self, entry.value());
        } else if (json::array* array = value.if_array()) {
            for (json::value& child : *array) self(self, child);
        }
    };
    each_object(each_object, root);
    EXPECT_GT(documents, 70u);
}

TEST_F(Faults, inTheBytesAreOneErrorOrADocument) {
    const char* seconds = std::getenv("SORVO_FUZZ_SECONDS");
    auto end =
        std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds ? std::atof(seconds) : 5);
    std::mt19937 random(static_cast<unsigned>(std::chrono::system_clock::now().time_since_epoch().count()));
    const std::string good = good_document;
    size_t documents = 0, refused = 0;
    for (; documents < 200 || std::chrono::steady_clock::now() < end; ++documents) {
        std::string text = good;
        if (random() % 4 == 0) text.resize(random() % text.size());
        for (auto changes = 1 + random() % 4; changes > 0 && !text.empty(); --changes) {
            size_t at = random() % text.size();
            switch (random() % 4) {
                case 0:
                    text[at] = static_cast<char>(random());
                    break;
                case 1:
                    text.erase(at, 1 + random() % 9);
                    break;
                case 2:
                    text.insert(at, good, random() % good.size(), random() % 60);
                    break;
                default:
                    text[at] = "0123456789-.eE\"{}[],:"[random() % 21];
                    break;
            }
        }
        Lines errors = read(text);
        refused += !errors.empty();
        ASSERT_TRUE(holds_together()) << text;
    }
    EXPECT_GT(refused, documents / 10) << "of " << documents;
    EXPECT_LT(refused, documents);
}

TEST_F(Faults, inWritingLeaveTheOldFileAndTheDirtyFlag) {
    std::filesystem::create_directory(folder.path / "folder");
    struct Row {
        std::string name, reason;
    };
    for (const Row& row : {Row{folder.file("folder"), "Is a directory"},
                           {folder.file("none/d.json"), "No such file or directory"},
                           {folder.file(std::string(300, 'x')), "File name too long"}}) {
        say("event start 0");
        EXPECT_TRUE(says("write \"" + row.name + "\"", "error",
                         "error tq.sorvo: could not write \"" + row.name + "\": " + row.reason));
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
