// The reader against another program's reading of the same files.
#include <gtest/gtest.h>
#include <stdio.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <sstream>

#include "app/midi/files.h"
#include "app/midi/reader.h"

namespace tq {

namespace {

// One line of midicsv's output; what stands between the commas.
using Row = std::vector<std::string>;

std::vector<Row> midicsv(const std::filesystem::path& path) {
    std::vector<Row> rows;
    FILE* pipe = popen(("midicsv '" + path.string() + "'").c_str(), "r");
    if (!pipe) return rows;
    std::array<char, 4096> line{};
    while (fgets(line.data(), line.size(), pipe)) {
        Row row;
        std::istringstream fields(line.data());
        std::string field;
        while (std::getline(fields >> std::ws, field, ',')) row.push_back(field);
        rows.push_back(row);
    }
    pclose(pipe);
    return rows;
}

// File track, channel, start and end in microseconds, pitch, velocity.
using Note = std::array<long, 6>;

long microseconds(double ms) { return std::lround(ms * 1000); }

// Times by walking every tempo change from the beginning, for each tick anew.
class SlowTempo {
 public:
    explicit SlowTempo(const std::vector<Row>& rows) {
        for (const Row& row : rows) {
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

std::vector<Note> notes_of(const std::vector<Row>& rows) {
    const SlowTempo tempo(rows);
    std::vector<Note> notes;
    std::map<std::array<long, 3>, std::vector<std::size_t>> open;  // oldest first
    long last = 0;
    for (const Row& row : rows) {
        if (row.size() > 2) last = std::max(last, std::stol(row[1]));
    }
    for (const Row& row : rows) {
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

std::vector<Note> notes_of(const MidiSong& song) {
    std::vector<Note> notes;
    for (const MidiTrack& track : song.tracks) {
        for (const MidiNote& note : track.notes) {
            notes.push_back({track.file_track + 1, track.channel, microseconds(note.start_ms),
                             microseconds(note.start_ms + note.duration_ms), note.pitch, note.velocity});
        }
    }
    return notes;
}

TEST(MidiCsv, readsTheSameNotes) {
    const auto files = test::real_files();
    if (files.empty()) GTEST_SKIP() << "no MIDI files on this machine";
    if (system("command -v midicsv >/dev/null") != 0) GTEST_SKIP() << "no midicsv on this machine";
    std::size_t compared = 0;
    for (const auto& path : files) {
        auto theirs = notes_of(midicsv(path));
        auto ours = notes_of(read_midi_file(test::read_bytes(path)));
        std::ranges::sort(theirs);
        std::ranges::sort(ours);
        EXPECT_EQ(ours, theirs) << path.filename();
        compared += theirs.size();
    }
    EXPECT_GT(compared, 10000u);
}

}  // namespace

}  // namespace tq
