// The program's window in a process of its own, off screen, driven by lines.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "temporary_folder.h"

namespace tq::test {

class WindowProcess {
 public:
    using Clock = std::chrono::steady_clock;

    /// Starts it in a folder, which holds its state files as well. What it says is kept in "said".
    WindowProcess(const TemporaryFolder& folder, std::vector<std::string> arguments) {
        int in[2] = {}, out[2] = {};
        if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0) std::abort();
        std::filesystem::permissions(folder.path, std::filesystem::perms::owner_all);
        process_ = ::fork();
        if (process_ == 0) run(folder, std::move(arguments), in[0], out[1]);
        ::close(in[0]);
        ::close(out[1]);
        input_ = in[1];
        output_ = out[0];
        reader_ = std::jthread([this] { read(); });
    }
    ~WindowProcess() {
        kill();
        reader_.join();
        ::close(output_);
    }
    WindowProcess(const WindowProcess&) = delete;
    WindowProcess& operator=(const WindowProcess&) = delete;

    /// Waits, too, while the process is behind.
    void send(const std::string& line) {
        const std::string text = line + "\n";
        [[maybe_unused]] ssize_t written = ::write(input_, text.data(), text.size());
    }
    /// Sends a line that is answered, and waits until it and all before it are done. False when it is not.
    bool wait() {
        const size_t before = answers_at().size();
        send("getdirty");
        for (int i = 0; i < 3000 && answers_at().size() <= before; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return answers_at().size() > before;
    }
    /// When each "getdirty" was answered.
    std::vector<Clock::time_point> answers_at() const {
        std::lock_guard lock(mutex_);
        return answers_at_;
    }
    std::string said() const {
        std::lock_guard lock(mutex_);
        return said_;
    }
    void kill() {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);
        end();
    }
    /// Closes the window by a line; the exit status.
    int quit() {
        send(".quit");
        return end();
    }

 private:
    [[noreturn]] static void run(const TemporaryFolder& folder, std::vector<std::string> arguments, int in,
                                 int out) {
        ::dup2(in, 0);
        ::dup2(out, 1);
        const int errors = ::open(folder.file("errors").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        ::dup2(errors, 2);
        ::setenv("XDG_STATE_HOME", folder.path.c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", folder.path.c_str(), 1);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        if (::chdir(folder.path.c_str()) != 0) ::_exit(126);
        arguments.insert(arguments.begin(), {SORVO_PROGRAM, "--stdin"});
        std::vector<char*> words;
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    void read() {
        char bytes[65536];
        std::string line;
        for (ssize_t got; (got = ::read(output_, bytes, sizeof bytes)) > 0;) {
            std::lock_guard lock(mutex_);
            said_.append(bytes, static_cast<size_t>(got));
            for (ssize_t i = 0; i < got; ++i) {
                if (bytes[i] != '\n') {
                    line += bytes[i];
                    continue;
                }
                if (line.starts_with("dump dirty")) answers_at_.push_back(Clock::now());
                line.clear();
            }
        }
    }
    int end() {
        int status = 0;
        ::waitpid(process_, &status, 0);
        process_ = 0;
        ::close(input_);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    pid_t process_ = 0;
    int input_ = -1, output_ = -1;

    mutable std::mutex mutex_;
    std::string said_;
    std::vector<Clock::time_point> answers_at_;
    std::jthread reader_;
};

}  // namespace tq::test
