// Sessions in virtual time that a seed chooses: everything that can be done to a box, with files that come
// and go and dialogs that take their time.
#pragma once

#include <cmath>
#include <random>

#include "app/midi/files.h"
#include "app/patch/paint_offscreen.h"
#include "app/patch/sound_files.h"
#include "file/random_document.h"
#include "history/random_message.h"
#include "interaction/random_hand.h"
#include "sounds.h"
#include "temporary_folder.h"

namespace tq::test {

/// It answers the dialogs as well: it is made before anybody else asks.
class RandomSession : private PatchFiles {
 public:
    RandomSession(Session& session, const TemporaryFolder& files, unsigned seed)
        : PatchFiles(session.host().patch), session_(session), files_(files), random_(seed) {
        files_.file_with("0.json", good_document);
        files_.file_with("1.json", "{\"tq.sorvo\":");
        files_.file_with("2.mid", text_of(midi_file(1, 480, {"00 90 3c 40 83 60 80 3c 00 00 ff 2f 00"})));
    }

    void act() {
        static const std::vector<std::string> views = {
            "zoom_out", "zoom_in", "zoom_hor 0.#999999", "cyclerange #900 1#900", "cyclerange #2000 #2000",
            "cycle 1",  "cycle 0", "new_track_color #3"};
        switch (below(32)) {
            case 0:
                return call(SizeCall{300. + below(300), 250 + number()});
            case 1:
                return hand_.act();
            case 2:
                return call(ZoomCall{300 + 10 * number(), 150, below(2) ? 1 : 0.5 + number() / 9, 1.1});
            case 3:
                return call(FocusCall{below(2) == 1});
            case 4:
                return call(TempoCall{20 + 10 * number()});
            case 5:
                return call(TransportCall{100 * number()});
            case 6:
                return call(FeedbackCall{below(3) > 0});
            case 7:
            case 8:
                return painter_.paint(session_.box());
            case 9:
            case 10:
            case 11:
            case 12:
                return session_.send(random_text(random_, views));
            case 14:
            case 15:
                return wait(number() * number() * 3);
            case 16:
                return wait(std::ldexp(std::floor(std::ldexp(number(), 20)), -20));
            case 13:
                return use_files();
            case 17:
            case 18:
                return use_sounds();
            case 28:
            case 29:
            case 30:
                return hand_.act();
            case 19:
                return session_.send(gensym("track_add"), Atoms{gensym("# two\nlines \"here\"")});
            default:
                return session_.send(random_message(random_, false));
        }
    }

 private:
    void call(const SessionCall& call) { session_.call(call); }
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    double number() { return below(1000001) / 1e5; }
    void wait(double ms) {
        Scheduler& scheduler = session_.host().scheduler;
        scheduler.run_until(on_time_grid(scheduler.now() + ms));
    }
    std::string file() { return files_.file(std::to_string(below(4)) + (below(4) ? ".json" : ".mid")); }
    std::optional<std::string> open_dialog() override { return answer(); }
    std::optional<std::string> save_dialog(const std::string&) override { return answer(); }
    std::optional<std::string> answer() {
        wait(number() * 30);
        return below(3) ? std::optional(file()) : std::nullopt;
    }
    void use_files() {
        switch (below(8)) {
            case 0:
                session_.open(file());
                return;
            case 1:
                return session_.send("read \"" + file() + "\"");
            case 2:
                return session_.send(below(2) ? "read" : "readagain");
            case 3:
                return session_.send("write \"" + (below(4) ? file() : files_.file("none/x.json")) + "\"");
            case 4:
                return session_.send(below(2) ? "write" : "writeagain");
            case 5:  // somebody else writes
                files_.file_with(std::to_string(below(4)) + ".json", good_document);
                return;
            case 6:
                RandomDocument(static_cast<unsigned>(below(1000))).make(session_);
                return;
            default:
                std::filesystem::remove(file());
        }
    }

    /// Sounds that come and go, beside the document and by name, and events that link to them.
    void use_sounds() {
        const std::string name = below(2) ? "kick" : "snare", path = files_.file(name + ".wav");
        switch (below(8)) {
            case 0:
            case 1:
                write_silence(path, static_cast<size_t>(1 + below(4000)));
                return;
            case 2:
                std::filesystem::remove(path);
                return;
            case 3:
                return call(BufferCall{name, below(3) ? path : ""});
            default:
                return session_.send("event id " + std::to_string(below(40)) + " <buffer> " + name +
                                     (below(2) ? " 1" : "") + " </buffer>");
        }
    }

    Session& session_;
    const TemporaryFolder& files_;
    std::mt19937 random_;
    SoundFiles sounds_{session_};
    OffscreenPainter painter_;
    RandomHand hand_{session_, random_};
};

}  // namespace tq::test
