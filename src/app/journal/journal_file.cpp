#include "app/journal/journal_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <boost/crc.hpp>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <utility>

#include "app/script/lines.h"
#include "host/file_writer.h"
#include "host/write_bytes.h"

namespace tq {

namespace {

using namespace std::chrono_literals;

constexpr auto write_interval = 100ms, sync_interval = 1000ms;
constexpr size_t large_piece = 64 << 10;   // bytes; more would be moved too often while it grows
constexpr size_t most_waiting = 64 << 20;  // bytes that cannot be written before the journal gives up

void sync_path(const std::filesystem::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace

std::string kept_name(std::string_view bytes) {
    boost::crc_32_type sum;
    sum.process_bytes(bytes.data(), bytes.size());
    return fmt::format("{}{}-{:08x}", kept_prefix, bytes.size(), sum.checksum());
}

JournalFile::JournalFile(std::filesystem::path folder, int descriptor)
    : folder_(std::move(folder)),
      descriptor_(descriptor),
      writer_([this](const std::stop_token& stop) { write_loop(stop); }),
      syncer_([this](const std::stop_token& stop) { sync_loop(stop); }) {}

JournalFile::~JournalFile() {
    syncer_.request_stop();
    writer_.request_stop();
}

void JournalFile::append(std::string_view text) {
    std::lock_guard lock(mutex_);
    if (gave_up_) return;
    if (pieces_.empty()) appended_.notify_all();
    if (pieces_.empty() || pieces_.back().text.size() > large_piece) pieces_.emplace_back();
    pieces_.back().text += text;
    waiting_ += text.size();
}

void JournalFile::keep(FileBytes bytes) {
    append("");
    std::lock_guard lock(mutex_);
    if (gave_up_) return;
    pieces_.back().file = std::move(bytes);
    pieces_.emplace_back();
}

bool JournalFile::drain() {
    std::unique_lock lock(mutex_);
    draining_ = true;
    appended_.notify_all();
    written_.wait(lock, [&] { return (pieces_.empty() && !writing_) || failed_ || gave_up_; });
    draining_ = false;
    return !failed_ && !gave_up_;
}

/// The other threads still run: what they are writing comes first. Not for ever, since it may be this thread
/// that holds the lock.
bool JournalFile::lock_in_a_crash() noexcept {
    constexpr int attempts = 500;
    constexpr timespec pause{0, 1000000};
    for (int i = 0; i < attempts; ++i) {
        if (mutex_.try_lock()) {
            if (!writing_) return true;
            mutex_.unlock();
        }
        ::nanosleep(&pause, nullptr);
    }
    return false;
}

void JournalFile::write_in_a_crash(std::initializer_list<std::string_view> last) noexcept {
    auto put = [this](std::string_view text) { return ::write(descriptor_, text.data(), text.size()) >= 0; };
    if (!lock_in_a_crash() || failed_) return;  // the lock is kept
    for (const Piece& piece : pieces_)
        if (!put(piece.text) || piece.file) return;  // what follows needs the file
    for (std::string_view text : last) put(text);
}

std::string JournalFile::take_fault() {
    if (!fault_to_tell_.exchange(false)) return {};
    std::lock_guard lock(mutex_);
    return fault_;
}

void JournalFile::write_loop(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (true) {
        appended_.wait(lock, stop, [&] { return !pieces_.empty(); });
        if (pieces_.empty()) return;  // told to stop
        appended_.wait_for(lock, stop, failed_ ? sync_interval : write_interval,
                           [&] { return draining_ && !failed_; });
        std::vector<Piece> pieces = std::exchange(pieces_, {});
        waiting_ = 0;
        writing_ = true;
        lock.unlock();
        const bool written = write_pieces(pieces);
        lock.lock();
        writing_ = false;
        to_sync_ = true;
        failed_ = !written;
        if (!written) take_back(std::move(pieces));
        written_.notify_all();
        if (!written && stop.stop_requested()) return;
    }
}

/// What could not be written stays first.
void JournalFile::take_back(std::vector<Piece> pieces) {
    pieces.insert(pieces.end(), std::make_move_iterator(pieces_.begin()),
                  std::make_move_iterator(pieces_.end()));
    pieces_ = std::move(pieces);
    waiting_ = 0;
    for (const Piece& piece : pieces_) waiting_ += piece.text.size();
    if (waiting_ <= most_waiting) return;
    gave_up_ = true;
    pieces_.clear();
}

void JournalFile::sync_loop(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (!stop.stop_requested()) {
        written_.wait(lock, stop, [&] { return to_sync_; });
        if (stop.stop_requested()) return;
        to_sync_ = false;
        std::vector<std::filesystem::path> kept = std::exchange(unsynced_, {});
        lock.unlock();
        for (const auto& path : kept) sync_path(path);
        if (!kept.empty()) sync_path(folder_);
        ::fdatasync(descriptor_);
        lock.lock();
        std::condition_variable_any pause;
        pause.wait_for(lock, stop, sync_interval, [] { return false; });
    }
}

bool JournalFile::write_pieces(std::vector<Piece>& pieces) {
    for (Piece& piece : pieces)
        if (!write_text(piece.text) || (piece.file && !(write_kept(piece) && write_text(piece.text))))
            return false;
    pieces.clear();
    return true;
}

/// Takes from the text what is written.
bool JournalFile::write_text(std::string& text) {
    const size_t done = write_bytes(descriptor_, text);
    if (done < text.size()) fail(std::strerror(errno));
    text.erase(0, done);
    return text.empty();
}

/// The line comes when the file is there.
bool JournalFile::write_kept(Piece& piece) {
    const std::string name = kept_name(*piece.file);
    const std::filesystem::path path = folder_ / name;
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        FileWriter file(path.string());
        if (!file.write(*piece.file) || !file.commit(FileWriter::Sync::Later)) {
            fail(file.fault());
            return false;
        }
        std::lock_guard lock(mutex_);
        unsynced_.push_back(path);
    }
    piece.file = nullptr;
    piece.text = line_text(FileLine{FileLine::Kind::Read, name}) + "\n";
    return true;
}

void JournalFile::fail(const std::string& reason) {
    std::lock_guard lock(mutex_);
    if (!fault_.empty()) return;  // said once
    fault_ = reason;
    fault_to_tell_ = true;
}

}  // namespace tq
