#include "app/midi/track_parser.h"

#include <algorithm>

#include "app/midi/text.h"

namespace tq {

namespace {

enum Meta : std::uint8_t {
    TrackName = 0x03,
    Port = 0x21,
    EndOfTrack = 0x2f,
    Tempo = 0x51,
    Signature = 0x58,
};

enum Controller : std::uint8_t {
    DataCoarse = 6,
    DataFine = 38,
    OwnParameterFine = 98,
    OwnParameterCoarse = 99,
    ParameterFine = 100,
    ParameterCoarse = 101,
    ResetAll = 121,
};

std::uint8_t byte(std::string_view data, std::size_t index) { return static_cast<std::uint8_t>(data[index]); }

}  // namespace

void TrackParser::run() {
    while (reader_.left() > 0 && event()) continue;
    finish();
}

// Reads one event; false at the end of the track. Running status outlives metas and system exclusives: files
// that rely on it exist, and nothing else could be meant.
bool TrackParser::event() {
    tick_ += reader_.variable();
    const std::size_t position = reader_.position();
    std::uint8_t status = running_;
    if (reader_.peek() & 0x80) status = reader_.u8();
    if (status == 0xff) return meta();
    if (status == 0xf0 || status == 0xf7) {
        const std::uint32_t length = reader_.variable();
        reader_.bytes(length);
        return true;
    }
    if (status < 0x80) throw MidiError("a data byte before any status byte", position);
    if (status > 0xf0) throw MidiError("a status byte that does not belong in a file", position);
    running_ = status;
    channel_message(status, static_cast<std::uint32_t>(position));
    return true;
}

void TrackParser::channel_message(std::uint8_t status, std::uint32_t position) {
    if (++file_.messages > most_messages)
        throw MidiError("more than " + std::to_string(most_messages) + " messages", position);
    const std::uint8_t channel = status & 0x0f;
    const std::uint8_t a = reader_.data();
    const bool short_message = (status & 0xe0) == 0xc0;  // program change and channel pressure
    const std::uint8_t b = short_message ? std::uint8_t{0} : reader_.data();
    using Kind = ChannelChange::Kind;
    switch (status & 0xf0) {
        case 0x80:
            note_off(channel, a);
            break;
        case 0x90:
            b ? note_on(channel, a, b, position) : note_off(channel, a);
            break;
        case 0xb0:
            controller(channel, a, b, position);
            break;
        case 0xc0:
            change(Kind::Program, channel, a, position);
            break;
        case 0xe0:
            change(Kind::Bend, channel, a | b << 7, position);
            break;
        default:
            ++file_.ignored_messages;
    }
}

void TrackParser::note_on(std::uint8_t channel, std::uint8_t key, std::uint8_t velocity,
                          std::uint32_t position) {
    auto& notes = notes_[channel];
    const auto index = static_cast<std::uint32_t>(notes.size());
    notes.push_back({tick_, none, position, key, velocity});
    Sounding& sounding = sounding_[channel * 128u + key];
    if (sounding.first == none) {
        sounding.first = index;
    } else {
        notes[sounding.last].end = index;
    }
    sounding.last = index;
}

// Equal notes that overlap end in the order in which they began. An end without a note is nothing.
void TrackParser::note_off(std::uint8_t channel, std::uint8_t key) {
    Sounding& sounding = sounding_[channel * 128u + key];
    if (sounding.first == none) return;
    RawNote& note = notes_[channel][sounding.first];
    sounding.first = static_cast<std::uint32_t>(note.end);
    note.end = tick_;
}

void TrackParser::change(ChannelChange::Kind kind, std::uint8_t channel, int value, std::uint32_t position) {
    track_.changes.push_back({tick_, position, kind, channel, static_cast<std::uint16_t>(value)});
}

// Of the controllers only those count that set the bend range, and the one that lets the wheel go.
void TrackParser::controller(std::uint8_t channel, std::uint8_t number, std::uint8_t value,
                             std::uint32_t position) {
    DataEntry& entry = data_entries_[channel];
    switch (number) {
        case ParameterFine:
            entry.selected = (entry.selected & 0x3f80) | value;
            break;
        case ParameterCoarse:
            entry.selected = (entry.selected & 0x7f) | value << 7;
            break;
        case OwnParameterFine:
        case OwnParameterCoarse:
            entry.selected = DataEntry::nothing;
            break;
        case DataCoarse:
            data_entry(channel, value, entry.cents, position);
            break;
        case DataFine:
            data_entry(channel, entry.semitones, value, position);
            break;
        case ResetAll:
            entry.selected = DataEntry::nothing;
            change(ChannelChange::Kind::Bend, channel, 8192, position);
            break;
        default:
            ++file_.ignored_messages;
    }
}

void TrackParser::data_entry(std::uint8_t channel, int semitones, int cents, std::uint32_t position) {
    DataEntry& entry = data_entries_[channel];
    if (entry.selected != DataEntry::bend_range) {
        ++file_.ignored_messages;
        return;
    }
    entry.semitones = semitones;
    entry.cents = cents;
    change(ChannelChange::Kind::Range, channel, semitones * 100 + cents, position);
}

bool TrackParser::meta() {
    const std::uint8_t type = reader_.u8();
    const std::uint32_t length = reader_.variable();
    const std::size_t position = reader_.position();
    const std::string_view data = reader_.bytes(length);
    switch (type) {
        case EndOfTrack:
            return false;
        case Tempo:
            tempo(data, position);
            break;
        case Signature:
            signature(data);
            break;
        case TrackName:
            if (track_.name.empty()) track_.name = midi_text(data);
            break;
        case Port:
            if (length == 1) track_.port = byte(data, 0) & 0x7f;
            break;
        default:
            break;
    }
    return true;
}

void TrackParser::tempo(std::string_view data, std::size_t position) {
    if (data.size() != 3) throw MidiError("a tempo that is not three bytes long", position);
    const auto quarter_us =
        static_cast<std::uint32_t>(byte(data, 0) << 16 | byte(data, 1) << 8 | byte(data, 2));
    if (quarter_us == 0) throw MidiError("a tempo of zero", position);
    file_.tempos.push_back({tick_, quarter_us});
}

// Signatures move no note, so one without sense is passed over.
void TrackParser::signature(std::string_view data) {
    if (data.size() < 2 || byte(data, 0) == 0 || byte(data, 1) > 7) return;
    file_.signatures.push_back({tick_, byte(data, 0), 1 << byte(data, 1)});
}

void TrackParser::finish() {
    for (std::size_t i = 0; i < sounding_.size(); ++i) {
        auto& notes = notes_[i / 128];
        std::uint32_t index = sounding_[i].first;
        while (index != none) {
            const auto next = static_cast<std::uint32_t>(notes[index].end);
            notes[index].end = RawNote::open;
            index = next;
        }
    }
    for (int channel = 0; channel < 16; ++channel) {
        auto& notes = notes_[static_cast<std::size_t>(channel)];
        if (!notes.empty()) track_.channels.push_back({channel, std::move(notes)});
    }
    file_.end = std::max(file_.end, tick_);
    file_.tracks.push_back(std::move(track_));
}

}  // namespace tq
