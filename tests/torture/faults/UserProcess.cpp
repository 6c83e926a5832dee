#include "tests/torture/faults/UserProcess.h"

#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/torture/storage/Snapshot.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace kvex::torture {
namespace {

using test::Editor;

/// What the user's process says to the judging one.
struct Seen {
    bool hasStruck;
    bool wasTold;
};

/// A page that both processes see.
Seen &sharedSeen() {
    static void *const page =
        mmap(nullptr, sizeof(Seen), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED) {
        throw std::runtime_error("no shared memory");
    }
    return *static_cast<Seen *>(page);
}

/// True when an error left the button. No user sees that; it counts as told.
bool throws(const std::function<void()> &button) {
    try {
        button();
        return false;
    } catch (...) {
        return true;
    }
}

bool isTold(const Editor &editor) {
    return !editor.toolkit.unhandledErrors().empty() ||
           std::ranges::any_of(editor.utility.messages, [](const test::Message &message) {
               return message.style == message_box::exclamation;
           });
}

/// The user's process. Returns its exit code.
int play(const Point &point, const std::filesystem::path &file, Seen &seen) {
    test::WatchedDatabase database(sqlite::provider());
    const std::unique_ptr<Fault> fault = point.kind.make(database);
    const WatchedFiles files([&](const FileOperation &operation) { return fault->at(operation); });
    Editor editor(database.provider(),
                  u"Provider=SQLite;Busy Timeout=1;Data Source=" + fromUtf8(file.string()));
    point.scenario.play(editor, [&](const std::function<void()> &button) {
        fault->arm(point.number);
        const bool thrown = throws(button);
        seen.hasStruck = fault->disarm();
        seen.wasTold = thrown || isTold(editor);
        // The judge looks at the database now.
        static_cast<void>(std::raise(SIGSTOP));
        static_cast<void>(throws(button));
    });
    for (const std::string &problem : editor.toolkit.problems()) {
        std::cerr << problem << '\n';
    }
    return editor.toolkit.problems().empty() && editor.toolkit.pendingScripts() == 0 ? 0 : 1;
}

[[noreturn]] void becomeUser(const Point &point, const std::filesystem::path &file,
                             const std::filesystem::path &log, Seen &seen) {
    const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    constexpr unsigned hangs = 120;
    alarm(hangs);
    _exit(play(point, file, seen));
}

std::string failureOf(int status, const std::filesystem::path &log) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        return {};
    }
    std::ifstream stream(log);
    const std::string written(std::istreambuf_iterator<char>(stream), {});
    return (WIFSIGNALED(status) ? std::string("killed by ") + strsignal(WTERMSIG(status))
                                : "exit code " + std::to_string(WEXITSTATUS(status))) +
           "\n" + written;
}

} // namespace

Course playUser(const Point &point, const std::filesystem::path &database,
                const std::filesystem::path &folder) {
    const std::filesystem::path file = folder / "rules.db";
    const std::filesystem::path log = folder / "output";
    for (const char *left : {"-wal", "-shm", "-journal"}) {
        std::filesystem::remove(file.string() + left);
    }
    std::filesystem::copy_file(database, file, std::filesystem::copy_options::overwrite_existing);
    Seen &seen = sharedSeen();
    seen = {};
    const pid_t user = fork();
    if (user == 0) {
        becomeUser(point, file, log, seen);
    }
    int status = 0;
    waitpid(user, &status, WUNTRACED);
    Course course{};
    if (WIFSTOPPED(status)) {
        course.afterFirst = snapshot(file);
        kill(user, SIGCONT);
        waitpid(user, &status, 0);
    } else {
        course.afterFirst = "the button was not pressed\n";
    }
    course.failure = failureOf(status, log);
    course.hasStruck = seen.hasStruck;
    course.wasTold = seen.wasTold;
    course.afterSecond = snapshot(file);
    return course;
}

} // namespace kvex::torture
