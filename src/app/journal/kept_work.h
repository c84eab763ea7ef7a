// What was not lost: sessions that ended unexpectedly, and copies of documents that were not saved.
#pragma once

#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/patch/session.h"

namespace tq {

struct KeptWork {
    enum class Kind { Session, Copy } kind = Kind::Copy;
    std::filesystem::path path;  ///< the session's folder, or the copy
    std::string document;        ///< its file, of a copy only its name; empty: never saved
    std::time_t when = 0;        ///< something was last done in it
    friend bool operator==(const KeptWork&, const KeptWork&) = default;
};

struct KeptWorkFound {
    std::vector<KeptWork> work;      ///< the latest first
    std::vector<std::string> notes;  ///< what the user should know of what was found
};
/// Looks for it, as find_dead_sessions() does. Sessions that run are none of it.
KeptWorkFound find_kept_work();
/// What is at this path; none when that is neither a session's folder nor a file.
std::optional<KeptWork> kept_work_at(const std::filesystem::path& path);

/// How much there is of it.
struct KeptAmount {
    size_t tracks = 0, events = 0;
    double length = 0;            ///< until the last event ends, ms
    std::optional<size_t> edits;  ///< that can be undone; copies have none
    std::string name;             ///< the document's file name or else its title; empty: it has neither
    friend bool operator==(const KeptAmount&, const KeptAmount&) = default;
};

/// The document as it would come back, in a session that is only to be looked at.
struct KeptLook {
    std::unique_ptr<Session> session;
    KeptAmount amount;
    std::string fault;  ///< what did not come back of it; mostly empty
};
/// Takes as long as doing a session again takes. Nothing is done to the work, and nobody is kept from it.
/// None when it cannot be read.
std::optional<KeptLook> look_at(const KeptWork& work);
/// Writes a small picture of all its events as a PNG; the reason when that failed.
std::optional<std::string> write_picture(KeptLook& look, const std::string& path);

/// One line with tabs between: when (local time), "session" or "copy", tracks, events, ms, edits, name, path.
/// "-" stands for what is not known.
std::string kept_work_line(const KeptWork& work, const std::optional<KeptAmount>& amount);
/// The amount that such a line tells.
std::optional<KeptAmount> amount_in_line(const std::string& line);

}  // namespace tq
