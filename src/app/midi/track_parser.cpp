#include "app/midi/track_parser.h"

#include <algorithm>

#include "app/midi/part_mark.h"
#include "app/midi/text.h"

namespace tq {

namespace {

enum Meta : std::uint8_t {
    TrackName = 0x03,
    Port = 0x21,
    EndOfTrack = 0x2f,
    Tempo = 0x51,
    Signature = 0x58,
    Own = 0x7f,
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
        exclusive(reader_.bytes(length));
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
    const std::uint8_t a = data();
    const bool short_message = (status & 0xe0) == 0xc0;  // program change and channel pressure
    const std::uint8_t b = short_message ? std::uint8_t{0} : data();
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
        case 0xa0:
            change(KeyPressure, channel, a << 7 | b, position);
            break;
        case 0xc0:
            change(ChannelChange::Program, channel, a, position);
            break;
        case 0xd0:
            change(ChannelPressure, channel, a, position);
            break;
        case 0xe0:
            change(ChannelChange::Bend, channel, a | b << 7, position);
            break;
        default:
            break;
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

void TrackParser::end_all(std::uint8_t channel) {
    for (std::uint8_t key = 0; key < 128; ++key)
        while (sounding_[channel * 128u + key].first != none) note_off(channel, key);
}

// A byte that is too large for what it says stands for the largest. A few of these are slips of whoever wrote
// the file; many are another kind of file.
std::uint8_t TrackParser::data() {
    const std::size_t position = reader_.position();
    const std::uint8_t value = reader_.u8();
    if (value < 0x80) return value;
    if (++file_.left_out.repaired > 8 + file_.messages / 100)
        throw MidiError("a status byte where a data byte belongs", position);
    return 0x7f;
}

void TrackParser::change(int what, std::uint8_t channel, int value, std::uint32_t position) {
    track_.changes.push_back(
        {tick_, position, static_cast<std::uint16_t>(value), static_cast<std::uint8_t>(what), channel});
}

void TrackParser::controller(std::uint8_t channel, std::uint8_t number, std::uint8_t value,
                             std::uint32_t position) {
    DataEntry& entry = data_entries_[channel];
    switch (number) {
        case ParameterFine:
            entry.selected = (entry.selected & ~0x7f) | value;
            break;
        case ParameterCoarse:
            entry.selected = (entry.selected & 0x7f) | value << 7;
            break;
        case OwnParameterFine:
        case OwnParameterCoarse:
            entry.selected = DataEntry::Nothing;
            break;
        case DataCoarse:
        case DataFine:
            data_entry(channel, number == DataCoarse, value, position);
            break;
        case DataIncrement:
        case DataDecrement:
            ++file_.left_out.parameters;
            break;
        case BankCoarse:
            banks_[channel] = {value, 0};
            change(ChannelChange::Bank, channel, value << 7, position);
            break;
        case BankFine:
            banks_[channel].fine = value;
            change(ChannelChange::Bank, channel, banks_[channel].coarse << 7 | value, position);
            break;
        case ResetAll:
            reset(channel, position);
            break;
        case LocalControl:
            break;  // means the keyboard that somebody sat at
        default:
            if (number == AllSoundOff || number >= AllNotesOff)
                end_all(channel);
            else if (controller_makes_curve(number))
                change(number, channel, value, position);
            else
                ++file_.left_out.fine;
    }
}

// Which controllers are reset, and which keep what they are at, is the recommended practice for this message.
void TrackParser::reset(std::uint8_t channel, std::uint32_t position) {
    data_entries_[channel].selected = DataEntry::Nothing;
    change(ChannelChange::Bend, channel, 8192, position);
    for (const int controller : {int{Modulation}, int{Expression}, int{Sustain}, int{Portamento},
                                 int{Sostenuto}, int{SoftPedal}, int{ChannelPressure}})
        change(controller, channel, controller_initial(controller), position);
}

void TrackParser::data_entry(std::uint8_t channel, bool coarse, int value, std::uint32_t position) {
    DataEntry& entry = data_entries_[channel];
    switch (entry.selected) {
        case DataEntry::BendRange:
            (coarse ? entry.semitones : entry.cents) = value;
            change(ChannelChange::Range, channel, entry.semitones * 100 + entry.cents, position);
            return;
        case DataEntry::FineTuning:
            entry.tuned_fine =
                coarse ? value << 7 | (entry.tuned_fine & 0x7f) : (entry.tuned_fine & ~0x7f) | value;
            break;
        case DataEntry::CoarseTuning:
            if (coarse) entry.tuned_semitones = value;
            break;
        default:
            if (entry.selected != DataEntry::Nothing || coarse) ++file_.left_out.parameters;
            return;
    }
    const int fine_cents = (entry.tuned_fine - 8192) * 100 / 8192;
    change(ChannelChange::Tuning, channel, std::max(entry.tuned_semitones * 100 + fine_cents, 0), position);
}

// The resets of the kinds of instruments stand at the beginning, where everything is reset already.
void TrackParser::exclusive(std::string_view data) {
    using namespace std::string_view_literals;
    constexpr std::string_view resets[] = {
        "\x7e\x7f\x09\x01\xf7"sv,                      // the general one
        "\x7e\x7f\x09\x03\xf7"sv,                      // its second level
        "\x41\x10\x42\x12\x40\x00\x7f\x00\x41\xf7"sv,  // banks as variations
    };
    constexpr std::string_view extended = "\x43\x10\x4c\x00\x00\x7e\x00\xf7"sv;
    if (data == extended)
        file_.extended = true;
    else if (std::ranges::find(resets, data) == std::end(resets))
        ++file_.left_out.exclusives;
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
        case Own:
            if (data == part_begins) track_.mark = PartMark::Begins;
            if (data == part_goes_on) track_.mark = PartMark::GoesOn;
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
