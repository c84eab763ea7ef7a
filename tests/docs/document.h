// What a document of docs/ says, read as those who write it do: headings, tables, and what is set as code.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/script_fixture.h"

namespace tq::test {

/// The cells of a row, without the blanks around them; `\|` is no end of a cell, and is `|` in it.
inline Lines cells_of(const std::string& row) {
    Lines cells;
    std::string cell;
    for (size_t i = 1; i < row.size(); ++i) {
        const bool escaped = row[i] == '\\' && i + 1 < row.size() && row[i + 1] == '|';
        if (escaped || row[i] != '|') {
            cell += escaped ? row[++i] : row[i];
            continue;
        }
        const Lines trimmed = lines_of(cell);
        cells.push_back(trimmed.empty() ? "" : trimmed.front());
        cell.clear();
    }
    return cells;
}

/// What is set as code in a text.
inline Lines code_in(const std::string& text) {
    Lines code;
    for (size_t open = text.find('`'), close; open != text.npos; open = text.find('`', close + 1)) {
        close = text.find('`', open + 1);
        if (close == text.npos) break;
        code.push_back(text.substr(open + 1, close - open - 1));
    }
    return code;
}

/// What stands between fences, or in a comment that tells what the hand does.
struct Block {
    std::string kind, name, text;
};

inline std::vector<Block> blocks_of(const std::string& document) {
    std::vector<Block> blocks;
    std::istringstream lines(document);
    std::string end;  // of the block that is open
    for (std::string line; std::getline(lines, line);) {
        if (!end.empty()) {
            if (line == end)
                end.clear();
            else
                blocks.back().text += line + '\n';
        } else if (line.starts_with("```") || line == "<!-- hand") {
            end = line.starts_with("```") ? "```" : "-->";
            std::istringstream words(line.substr(end == "```" ? 3 : 5));
            blocks.emplace_back();
            words >> blocks.back().kind >> blocks.back().name;
        }
    }
    EXPECT_EQ(end, "") << "a block does not end";
    return blocks;
}

struct Document {
    std::string text;
    explicit Document(const std::string& name) : text(text_of_file(SORVO_DOCS "/" + name)) {}

    /// What stands below a heading, up to the next of the same rank.
    std::string section(const std::string& heading) const {
        const size_t begin = text.find("\n## " + heading + "\n");
        EXPECT_NE(begin, text.npos) << "no section " << heading;
        if (begin == text.npos) return "";
        return text.substr(begin, text.find("\n## ", begin + 1) - begin);
    }
    /// The rows of the tables of a section whose first column has this title.
    std::vector<Lines> rows(const std::string& heading, const std::string& title) const {
        std::vector<Lines> rows;
        bool inside = false;
        for (const std::string& line : lines_of(section(heading))) {
            if (line.front() != '|') {
                inside = false;
            } else if (const Lines cells = cells_of(line); inside) {
                if (!cells.at(0).starts_with("---")) rows.push_back(cells);
            } else {
                inside = cells.at(0) == title;
            }
        }
        EXPECT_FALSE(rows.empty()) << "no table of " << title << " in " << heading;
        return rows;
    }
    /// All that is set as code in the first column of these.
    Lines first_column(const std::string& heading, const std::string& title) const {
        Lines code;
        for (const Lines& row : rows(heading, title))
            for (const std::string& word : code_in(row.at(0))) code.push_back(word);
        return code;
    }
};

}  // namespace tq::test
