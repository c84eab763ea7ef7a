// Reads the events of one track chunk.
#pragma once

#include <array>

#include "app/midi/byte_reader.h"
#include "app/midi/raw_file.h"

namespace tq {

/// Goes through the events of a track once. Use one parser for one track.
class TrackParser {
 public:
    /// Appends to `file`: the track, its tempos and signatures; counts what is ignored.
    TrackParser(ByteReader reader, RawFile& file) : reader_(reader), file_(file) {}
    void run();

 private:
    static constexpr std::uint32_t none = ~std::uint32_t{0};
    /// The notes of a channel and key that sound, oldest first, as a list that runs through `RawNote::end`.
    struct Sounding {
        std::uint32_t first = none;
        std::uint32_t last = none;
    };

    /// Which parameter data entry sets, and what it has set the bend range to.
    struct DataEntry {
        enum Parameter : std::uint16_t { BendRange = 0, FineTuning = 1, CoarseTuning = 2, Nothing = 0x3fff };
        static constexpr int unsaid = 64;  ///< tuning is told from the middle
        int selected = Nothing;
        int semitones = 2;
        int cents = 0;
        int tuned_semitones = unsaid;
        int tuned_fine = unsaid << 7;
    };
    struct BankSelect {
        int coarse = 0;
        int fine = 0;
    };

    bool event();
    void channel_message(std::uint8_t status, std::uint32_t position);
    void note_on(std::uint8_t channel, std::uint8_t key, std::uint8_t velocity, std::uint32_t position);
    void note_off(std::uint8_t channel, std::uint8_t key);
    void end_all(std::uint8_t channel);
    void change(int what, std::uint8_t channel, int value, std::uint32_t position);
    void controller(std::uint8_t channel, std::uint8_t number, std::uint8_t value, std::uint32_t position);
    void data_entry(std::uint8_t channel, bool coarse, int value, std::uint32_t position);
    void reset(std::uint8_t channel, std::uint32_t position);
    void exclusive(std::string_view data);
    std::uint8_t data();
    bool meta();
    void tempo(std::string_view data, std::size_t position);
    void signature(std::string_view data);
    void finish();

    ByteReader reader_;
    RawFile& file_;
    RawTrack track_;
    std::int64_t tick_ = 0;
    std::uint8_t running_ = 0;
    std::array<DataEntry, 16> data_entries_;
    std::array<BankSelect, 16> banks_;
    std::array<std::vector<RawNote>, 16> notes_;
    std::array<Sounding, 16 * 128> sounding_;
};

}  // namespace tq
