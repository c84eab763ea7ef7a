#include "app/journal/kept_work.h"

#include <fmt/chrono.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "app/journal/recovery.h"
#include "app/journal/session_folder.h"
#include "app/patch/kept_copies.h"
#include "app/patch/paint_offscreen.h"
#include "app/script/framed_lines.h"
#include "history/edit.h"
#include "host/files.h"
#include "view/sector.h"
#include "view/zoom_commands.h"

namespace tq {

namespace {

namespace fs = std::filesystem;

constexpr Size picture_size{384, 216};

std::time_t changed(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mtime : 0;
}

KeptWork copy_at(const fs::path& path) {
    return {KeptWork::Kind::Copy, path, document_of_copy(path), changed(path)};
}

/// Nobody hears what it says, and it asks nobody.
std::optional<KeptLook> look_at_copy(const fs::path& path) {
    KeptLook look{std::make_unique<Session>(), {}, {}};
    if (!look.session->call(OpenCall{path.string(), true})) return {};
    return look;
}

std::optional<KeptLook> look_at_session(const fs::path& folder) {
    KeptLook look{std::make_unique<Session>(), {}, {}};
    std::string fault;
    const FileBytes journal = read_file((folder / "journal").string(), fault);
    if (!journal) return {};
    look.fault = replay(*look.session, whole_lines(*journal), folder).fault;
    return look;
}

KeptAmount amount_of(const KeptWork& work, const Session& session) {
    const Prseq& box = session.box();
    KeptAmount amount;
    amount.tracks = box.tracks.size();
    for (const TrackRef& track : box.tracks) {
        amount.events += track->events.size();
        amount.length = std::max(amount.length, track->events.latest_end());
    }
    if (work.kind == KeptWork::Kind::Session) amount.edits = box.history.items.size();
    amount.name = fs::path(work.document).filename().string();
    if (amount.name.empty() && box.info.title != DocumentInfo().title) amount.name = box.info.title;
    return amount;
}

Sector sector_of_all(const Prseq& box) {
    double lowest = Prseq::maximumpitch, highest = 0, end = 0;
    for (const TrackRef& track : box.tracks) {
        track->events.for_each([&](const Event& event) {
            lowest = std::min(lowest, event.pitch);
            highest = std::max(highest, event.pitch);
        });
        end = std::max(end, track->events.latest_end());
    }
    constexpr double rows_beside = 2;
    if (end == 0) return TQ_Prseq_Zoom_MakeSector(0, box.timelinelength, Prseq::maximumpitch, 0);
    return TQ_Prseq_Zoom_MakeSector(0, end, highest + rows_beside, lowest - rows_beside);
}

/// What is between tabs holds none.
std::string cell(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\n'; }, ' ');
    return text.empty() ? "-" : text;
}

}  // namespace

std::optional<KeptWork> kept_work_at(const fs::path& path) {
    std::error_code ignored;
    const fs::path journal = path / "journal";
    if (fs::is_regular_file(path, ignored)) return copy_at(path);
    if (!fs::is_regular_file(journal, ignored)) return {};
    std::string fault;
    const FileBytes text = read_file(journal.string(), fault);
    return KeptWork{KeptWork::Kind::Session, path, text ? last_note(*text, document_note).value_or("") : "",
                    changed(journal)};
}

KeptWorkFound find_kept_work() {
    DeadSessions dead = find_dead_sessions();
    KeptWorkFound found{{}, std::move(dead.notes)};
    for (const DeadSession& session : dead.sessions)
        found.work.push_back({KeptWork::Kind::Session, session.folder, session.document, session.when});
    for (const fs::path& copy : kept_copies()) found.work.push_back(copy_at(copy));
    std::ranges::stable_sort(found.work, std::greater<>(), &KeptWork::when);
    return found;
}

std::optional<KeptLook> look_at(const KeptWork& work) {
    std::optional<KeptLook> look =
        work.kind == KeptWork::Kind::Session ? look_at_session(work.path) : look_at_copy(work.path);
    if (!look) return {};
    end_what_is_under_way(look->session->box());  // it is an edit, too
    look->amount = amount_of(work, *look->session);
    return look;
}

std::optional<std::string> write_picture(KeptLook& look, const std::string& path) {
    Session& session = *look.session;
    for (const char* message : {"zoom_animation 0", "menudisplay 0", "trackdisplay 0", "keydisplay 0",
                                "parameterdisplay 0", "focusdisplay 0"})
        session.send(message);
    session.call(SizeCall{picture_size.width, picture_size.height});
    zoom_to(session.box(), sector_of_all(session.box()));
    OffscreenPainter painter;
    return painter.paint_to_png(session.box(), path);
}

std::string kept_work_line(const KeptWork& work, const std::optional<KeptAmount>& amount) {
    const std::string when = fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::localtime(work.when));
    const char* kind = work.kind == KeptWork::Kind::Session ? "session" : "copy";
    const std::string name = amount ? amount->name : fs::path(work.document).filename().string();
    const std::string edits = amount && amount->edits ? std::to_string(*amount->edits) : "-";
    const std::string much =
        amount ? fmt::format("{}\t{}\t{:.0f}", amount->tracks, amount->events, amount->length) : "-\t-\t-";
    return fmt::format("{}\t{}\t{}\t{}\t{}\t{}", when, kind, much, edits, cell(name),
                       cell(work.path.string()));
}

std::optional<KeptAmount> amount_in_line(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string text; std::getline(stream, text, '\t');) cells.push_back(text);
    enum { Tracks = 2, Events, Length, Edits, Name, Path };
    if (cells.size() <= Path || cells[Tracks] == "-") return {};
    const auto number = [&](size_t i) { return std::strtoull(cells[i].c_str(), nullptr, 10); };
    KeptAmount amount;
    amount.tracks = number(Tracks);
    amount.events = number(Events);
    amount.length = std::strtod(cells[Length].c_str(), nullptr);
    if (cells[Edits] != "-") amount.edits = number(Edits);
    if (cells[Name] != "-") amount.name = cells[Name];
    return amount;
}

}  // namespace tq
