// docs/messages.md against the tables of the code: it leaves nothing out, and tells of nothing that does not
// exist.
#include <fmt/format.h>

#include <set>

#include "app/script/show.h"
#include "docs/document.h"
#include "docs/usage.h"
#include "interaction/commands.h"
#include "interaction/mouse_modes.h"
#include "shell/event_keywords.h"
#include "shell/instance.h"

namespace tq::test {
namespace {

using Names = std::multiset<std::string>;

struct MessagesDocument : ScriptTest {
    const Document document{"messages.md"};

    std::vector<Usage> usages(const std::string& heading, const std::string& title) const {
        std::vector<Usage> usages;
        for (const std::string& text : document.first_column(heading, title)) {
            usages.emplace_back(text);
            usages.back().file = folder.file("file");
        }
        return usages;
    }
    std::vector<Usage> messages() const {
        std::vector<Usage> all;
        for (const char* heading : {"Playing", "Events", "Edits of the selection", "Tracks", "History",
                                    "Documents", "View and hand"})
            for (Usage& usage : usages(heading, "message")) all.push_back(std::move(usage));
        return all;
    }
    bool refused(const std::string& line) {
        for (const std::string& fault : say(line, "error"))
            if (fault.find("bad argument") != fault.npos) return true;
        return false;
    }
};

Names names_of(const std::vector<Usage>& usages) {
    Names names;
    for (const Usage& usage : usages) names.insert(usage.name());
    return names;
}

TEST_F(MessagesDocument, hasEveryMessageWithTheArgumentsThatItTakes) {
    Names existing;
    for (const Method& method : prseq_class().methods()) existing.insert(method.name.text());
    EXPECT_EQ(names_of(messages()), existing);

    for (const Usage& usage : messages()) {
        if (usage.name() == "event") continue;  // it says itself which part is bad
        SCOPED_TRACE(usage.name());
        say("read\ntrack_add A\ntrack_add B");
        EXPECT_FALSE(refused(usage.example({})));
        EXPECT_FALSE(refused(usage.example({.all = true})));
        EXPECT_TRUE(usage.needed() == 0 || refused(usage.example({.left_out = 1})));
        const bool ends_in_text = usage.words.back().repeated && usage.words.back().takes_words();
        EXPECT_TRUE(usage.words.size() == 1 || ends_in_text ||
                    refused(usage.example({.all = true, .wrong_end = true})));
        say("int 0");
    }
}

TEST_F(MessagesDocument, hasThePartsOfEvents) {
    for (const Usage& part : usages("Events", "part")) {
        const MessageCall message = parse_message("event " + part.example({.all = true}));
        const EventKeywords said = parse_event_keywords(message.arguments);
        const auto any_of = [](const EventKeywords& k) {
            return k.id || k.track || k.start || k.duration || k.label || k.note.given || k.message.given ||
                   k.buffer.given || k.parameter.given || k.bpf.given;
        };
        EXPECT_TRUE(any_of(said)) << part.name();
    }
    EXPECT_EQ(names_of(usages("Events", "part")),
              (Names{"id", "start", "duration", "track", "label", "<note>", "<message>", "<buffer>",
                     "<parameter>", "<bpf>"}));
}

TEST_F(MessagesDocument, hasTheModesOfTheMouse) {
    const std::string section = document.section("View and hand");
    const Lines named = code_in(section.substr(section.find("The modes are")));
    Names existing{"buffer_display"};
    for (const MouseModeRow& row : mouse_modes()) existing.insert(row.name);
    EXPECT_EQ(Names(named.begin(), named.end()), existing);
    for (const std::string& mode : named) EXPECT_EQ(say("mouse_mode " + mode, "error"), Lines()) << mode;
}

std::string values_of(const Attribute& attribute) {
    if (attribute.type == Attribute::Type::Char) return "0 or 1";
    if (attribute.type == Attribute::Type::Rgba) return "0 to 1 each";
    std::string names;
    for (size_t i = 0; i < attribute.enums.size(); ++i)
        names += fmt::format("{}{} {}", i ? ", " : "", i, attribute.enums[i]);
    if (!names.empty() || !attribute.clip) return names;
    return fmt::format("{} to {}", attribute.clip->first, attribute.clip->second);
}

TEST_F(MessagesDocument, hasTheAttributesAsTheyAre) {
    static const char* const types[] = {"switch", "int", "float", "color", "name"};  // in the order of Type
    Lines written, existing;
    for (const Lines& cells : document.rows("Attributes", "attribute"))
        written.push_back(fmt::format("| {} |", fmt::join(cells, " | ")));
    for (const Attribute& a : prseq_class().attributes())
        existing.push_back(fmt::format("| `{}` | {} | `{}` | {} | {} | {} |", a.name.text(),
                                       types[static_cast<size_t>(a.type)], a.default_value, values_of(a),
                                       a.category, a.label));
    EXPECT_TRUE(same_lines(written, existing));
}

/// Whether the driver's parser takes the line.
bool is_line(const std::string& line) {
    try {
        parse_line(line);
        return true;
    } catch (const ScriptFault&) {
        return false;
    }
}

TEST_F(MessagesDocument, hasEveryLineOfTheDriverWithItsArguments) {
    std::set<std::string> existing{".lines"}, named;  // that one says how others are read
    std::apply([&](const auto&... row) { (existing.emplace(row.name), ...); }, line_rows);
    for (const Usage& usage : usages("Lines of the driver", "line")) {
        named.insert(usage.name());
        if (usage.name() == ".lines") continue;
        for (size_t choice = 0; choice < usage.choices(); ++choice) {
            const std::string all = usage.example({.choice = choice, .all = true});
            EXPECT_TRUE(is_line(usage.example({.choice = choice})));
            EXPECT_TRUE(is_line(all)) << all;
            EXPECT_TRUE(usage.words.back().repeated || !is_line(all + " surplus")) << all;
            EXPECT_TRUE(usage.needed() == 0 || !is_line(usage.example({.choice = choice, .left_out = 1})))
                << all;
            EXPECT_TRUE(usage.name() != ".show" || show_lines(box(), all.substr(sizeof ".show"))) << all;
        }
    }
    EXPECT_EQ(named, existing);
}

TEST_F(MessagesDocument, hasEveryCommand) {
    const Lines named = document.first_column("Commands", "commands");
    Names existing;
    for (const CommandRow& row : commands()) existing.insert(row.name);
    EXPECT_EQ(Names(named.begin(), named.end()), existing);
}

/// Does whatever makes a box say something of its own.
const char* const everything = R"(
    .receiver synth
    track_add "First Track"
    track_parameter_add Cut 0 1 0 0
    event start 0 duration 100 label a <note> 60 100 </note>
    event start 50 duration 100 <note> 62 100 </note> <message> b 1 </message>
    track_add Second
    track_mute 0 1
    track_mute 0 0
    track_visible 0 0
    track_visible 0 1
    event start 0 <note> 64 90 </note>
    track_inspector_open
    .field trackdestination value synth
    .wait 100
    .mouse down 200 35
    .mouse drag 260 35
    .mouse up 260 35
    cyclerange 0 500
    .command cycle
    cycle 0
    position 0
    int 1
    .wait 300
    int 0
    track_active 0
    .command select_all
    dump_selected
    undo
    redo
    maxtime 20000
    zoom_in
    .wait 600
    .window 10 20 300 400
    getdirty
    getsnaptime
    getcycle
    getcyclerange
    getmaxtime
    track_dump
)";

TEST_F(MessagesDocument, hasEveryReport) {
    const std::vector<Usage> reports = usages("Reports", "report");
    std::vector<int> heard(reports.size());
    for (const std::string& line : say(everything)) {
        EXPECT_FALSE(line.starts_with("error") || line.starts_with("post")) << line;
        if (!line.starts_with("out") && !line.starts_with("to ") && !line.starts_with("dump ")) continue;
        Lines words;
        for (const auto& word : message_words(line)) words.push_back(word.text);
        bool known = false;
        for (size_t i = 0; i < reports.size(); ++i)
            if (reports[i].fits(words)) ++heard[i], known = true;
        EXPECT_TRUE(known) << line;
    }
    for (size_t i = 0; i < reports.size(); ++i)
        EXPECT_GT(heard[i], 0) << document.first_column("Reports", "report")[i];
}

}  // namespace
}  // namespace tq::test
