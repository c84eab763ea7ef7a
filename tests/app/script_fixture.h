// A box that is driven by script text, and comparisons of what it says.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/script/script.h"
#include "file/document_writer.h"
#include "temporary_folder.h"

namespace tq::test {

using Lines = std::vector<std::string>;

/// Without blanks around them and without empty lines, so that tests can indent what they expect.
inline Lines lines_of(std::string_view text) {
    Lines lines;
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) {
        size_t first = line.find_first_not_of(" \t");
        if (first != line.npos) lines.push_back(line.substr(first, line.find_last_not_of(" \t") + 1 - first));
    }
    return lines;
}

/// Shows the first line that differs, with what stands around it.
inline testing::AssertionResult same_lines(const Lines& said, const Lines& expected) {
    if (said == expected) return testing::AssertionSuccess();
    size_t first = 0;
    while (first < said.size() && first < expected.size() && said[first] == expected[first]) ++first;
    auto result = testing::AssertionFailure()
                  << "line " << first + 1 << " of " << expected.size() << " differs";
    for (size_t i = first > 2 ? first - 2 : 0; i < first; ++i) result << "\n    " << said[i];
    for (size_t i = first; i < expected.size() && i < first + 4; ++i) result << "\n  - " << expected[i];
    for (size_t i = first; i < said.size() && i < first + 4; ++i) result << "\n  + " << said[i];
    return result;
}

/// A written document whose line of a key, or whose part up to the next brace, is cut off at the key.
inline std::string without(std::string document, const std::string& key) {
    const size_t at = document.find('"' + key + '"');
    return at == document.npos ? document : document.erase(at, document.find_first_of("\n}", at) - at);
}

/// A session's document, without what the history does not cover of it: the date, the timeline's length, what
/// is in view.
inline std::string document_of(const Session& session) {
    std::string document = TQ_Prseq_Json_MakeDictionary(session.box(), true);
    for (const char* key :
         {"date", "maxtime", "verticalzoom", "horizontalzoom", "verticalscroll", "horizontalscroll"})
        document = without(std::move(document), key);
    return document;
}

/// One box; every call of `say` goes on where the last one ended.
struct ScriptTest : testing::Test {
    explicit ScriptTest(bool times = false)
        : script(ScriptOptions{.width = 400, .height = 300, .document = "", .times = times}, out) {}

    /// What is said while the lines are run.
    Lines say(const std::string& text) {
        out.str("");
        std::istringstream lines(text);
        script.run(lines, "test");
        return lines_of(out.str());
    }
    /// The same, but only the lines of one source ("out0", "error", "event" …).
    Lines say(const std::string& text, std::string_view source) {
        Lines kept;
        for (const std::string& line : say(text))
            if ((" " + line).find(" " + std::string(source) + " ") < line.size()) kept.push_back(line);
        return kept;
    }
    testing::AssertionResult says(const std::string& text, std::string_view expected) {
        return same_lines(say(text), lines_of(expected));
    }
    testing::AssertionResult says(const std::string& text, std::string_view source,
                                  std::string_view expected) {
        return same_lines(say(text, source), lines_of(expected));
    }
    Lines read_document(const std::string& text) {
        return say("read \"" + folder.file_with("document.json", text) + "\"");
    }
    /// As it is written, but for the date: two that are the same may be a second apart.
    std::string document() {
        constexpr std::string_view date = "\"date\":\"";
        std::string text = say(".show document", "document").at(0).substr(sizeof "document");
        const size_t at = text.find(date) + date.size();
        return text.erase(at, text.find('"', at) - at);
    }
    Prseq& box() { return script.session().box(); }

    std::ostringstream out;
    Script script;
    TemporaryFolder folder;
};

/// Every line begins with its time. Time begins somewhere odd.
struct TimedScriptTest : ScriptTest {
    TimedScriptTest() : ScriptTest(true) { say(".wait 137.5"); }
};

}  // namespace tq::test
