#include "tests/servers/ServerProcess.h"

#include "tests/support/ArgumentPointers.h"

#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <fstream>
#include <grp.h>
#include <iterator>
#include <poll.h>
#include <sched.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

// This header of glibc 2.36 lacks extern "C".
extern "C" {
#include <sys/pidfd.h>
}

namespace kvex::test {
namespace {

// Waits end when a state is reached; this limit only ends a hang.
constexpr std::chrono::seconds hang{120};

/// A handle that stays with this process, also when a later one gets its number.
int handleOf(pid_t pid) {
    return pidfd_open(pid, 0);
}

bool endsWithin(int handle, std::chrono::milliseconds limit) {
    pollfd ended{handle, POLLIN, 0};
    return poll(&ended, 1, static_cast<int>(limit.count())) == 1;
}

[[noreturn]] void become(const std::vector<char *> &command, const char *folder, int log,
                         const std::optional<ServerUser> &user, pid_t parent) {
    // The shared memory of the server's processes then disappears with them. Where the system
    // forbids this, a killed server leaves some bytes behind.
    static_cast<void>(unshare(CLONE_NEWIPC));
    if (user &&
        (setgroups(0, nullptr) != 0 || setgid(user->group) != 0 || setuid(user->user) != 0)) {
        _exit(126);
    }
    // A change of the user resets this, so it comes after. The parent may have ended before.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent || chdir(folder) != 0) {
        _exit(126);
    }
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    close_range(STDERR_FILENO + 1, ~0U, 0);
    execv(command.front(), command.data());
    _exit(127);
}

std::vector<pid_t> childrenOf(pid_t pid) {
    const std::string number = std::to_string(pid);
    std::ifstream list("/proc/" + number + "/task/" + number + "/children");
    return {std::istream_iterator<pid_t>(list), {}};
}

/// Returns when the process has stopped, and so starts no further process.
void stopAndAwait(pid_t pid) {
    ::kill(pid, SIGSTOP);
    siginfo_t ignored{};
    waitid(P_PID, static_cast<id_t>(pid), &ignored, WSTOPPED | WEXITED | WNOWAIT);
}

} // namespace

ServerProcess::ServerProcess(const std::vector<std::string> &command, const ServerFolder &folder) {
    std::vector<std::string> words = command;
    const std::vector<char *> pointers = argumentPointers(words);
    const auto user = ServerUser::instead();
    const int log = open((folder / "log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC,
                         S_IRUSR | S_IWUSR);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
        become(pointers, folder.path().c_str(), log, user, parent);
    }
    close(log);
    if (pid_ < 0) {
        throw std::runtime_error("cannot start a process for " + command.front());
    }
    handle_ = handleOf(pid_);
}

ServerProcess::~ServerProcess() {
    kill();
    close(handle_);
}

bool ServerProcess::running() const {
    return !awaitEnd(std::chrono::milliseconds(0));
}

bool ServerProcess::awaitEnd(std::chrono::milliseconds limit) const {
    return reaped_ || endsWithin(handle_, limit);
}

void ServerProcess::end(int signal) {
    if (!reaped_) {
        ::kill(pid_, signal);
        thaw();
        if (!awaitEnd(hang)) {
            kill();
        }
        reap();
    }
}

void ServerProcess::kill() {
    if (reaped_) {
        return;
    }
    std::vector<std::pair<pid_t, int>> children;
    if (running()) {
        stopAndAwait(pid_);
        for (const pid_t child : childrenOf(pid_)) {
            children.emplace_back(child, handleOf(child));
        }
    }
    ::kill(pid_, SIGKILL);
    reap();
    for (const auto &[child, handle] : children) {
        if (handle >= 0) {
            pidfd_send_signal(handle, SIGKILL, nullptr, 0);
            endsWithin(handle, hang);
            close(handle);
        }
    }
}

void ServerProcess::freeze() const {
    if (running()) {
        stopAndAwait(pid_);
        for (const pid_t child : childrenOf(pid_)) {
            ::kill(child, SIGSTOP);
        }
    }
}

void ServerProcess::thaw() const {
    if (running()) {
        for (const pid_t child : childrenOf(pid_)) {
            ::kill(child, SIGCONT);
        }
        ::kill(pid_, SIGCONT);
    }
}

int ServerProcess::status() {
    reap();
    return status_;
}

void ServerProcess::reap() {
    if (!reaped_) {
        int status = 0;
        waitpid(pid_, &status, 0);
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        reaped_ = true;
    }
}

void runToEnd(const std::vector<std::string> &command, const ServerFolder &folder) {
    ServerProcess process(command, folder);
    if (!process.awaitEnd(hang)) {
        throw std::runtime_error(command.front() + " hangs: " + endOfLog(folder));
    }
    if (process.status() == 127) {
        throw std::runtime_error(command.front() + " cannot be started: is it installed?");
    }
    if (process.status() != 0) {
        throw std::runtime_error(command.front() + " failed: " + endOfLog(folder));
    }
}

std::string endOfLog(const ServerFolder &folder) {
    std::ifstream log(folder / "log", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(log), {}};
    constexpr std::size_t most = 3000;
    return text.size() > most ? text.substr(text.size() - most) : text;
}

} // namespace kvex::test
