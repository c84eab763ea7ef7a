// MIDI files as another program reads them.
#pragma once

#include <stdio.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace tq::test {

// One line of midicsv's output; what stands between the commas.
using CsvRow = std::vector<std::string>;

inline std::vector<CsvRow> midicsv(const std::filesystem::path& path) {
    std::vector<CsvRow> rows;
    FILE* pipe = popen(("midicsv '" + path.string() + "'").c_str(), "r");
    if (!pipe) return rows;
    std::array<char, 4096> line{};
    while (fgets(line.data(), line.size(), pipe)) {
        CsvRow row;
        std::istringstream fields(line.data());
        std::string field;
        while (std::getline(fields >> std::ws, field, ',')) row.push_back(field);
        rows.push_back(row);
    }
    pclose(pipe);
    return rows;
}

// File track, channel, start and end in microseconds, pitch, velocity.
using CsvNote = std::array<long, 6>;

inline long microseconds(double ms) { return std::lround(ms * 1000); }

// Times by walking every tempo change from the beginning, for each tick anew.
class SlowTempo {
 public:
    explicit SlowTempo(const std::vector<CsvRow>& rows) {
        for (const CsvRow& row : rows) {
            if (row.size() < 3) continue;
            if (row[2] == "Header") division_ = std::stod(row[5]);
            if (row[2] == "Tempo") changes_[std::stol(row[1])] = std::stod(row[3]);
        }
    }
    double ms(long tick) const {
        double time = 0;
        double quarter = 500000;
        long at = 0;
        for (const auto& [when, next] : changes_) {
            if (when >= tick) break;
            time += static_cast<double>(when - at) * quarter;
            at = when;
            quarter = next;
        }
        return (time + static_cast<double>(tick - at) * quarter) / (1000 * division_);
    }

 private:
    double division_ = 0;
    std::map<long, double> changes_;
};

inline std::vector<CsvNote> notes_of(const std::vector<CsvRow>& rows) {
    const SlowTempo tempo(rows);
    std::vector<CsvNote> notes;
    std::map<std::array<long, 3>, std::vector<std::size_t>> open;  // oldest first
    long last = 0;
    for (const CsvRow& row : rows) {
        if (row.size() > 2) last = std::max(last, std::stol(row[1]));
    }
    for (const CsvRow& row : rows) {
        if (row.size() < 6 || !row[2].starts_with("Note_o")) continue;
        const std::array<long, 3> key = {std::stol(row[0]), std::stol(row[3]), std::stol(row[4])};
        const long us = microseconds(tempo.ms(std::stol(row[1])));
        const long velocity = row[2] == "Note_on_c" ? std::stol(row[5]) : 0;
        if (velocity > 0) {
            open[key].push_back(notes.size());
            notes.push_back({key[0], key[1], us, microseconds(tempo.ms(last)), key[2], velocity});
        } else if (!open[key].empty()) {
            notes[open[key].front()][3] = us;
            open[key].erase(open[key].begin());
        }
    }
    return notes;
}

}  // namespace tq::test
