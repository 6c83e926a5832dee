#include "host/suite/ErrorLog.h"

#include "host/suite/ShownText.h"
#include "host/suite/UserFolders.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <iterator>
#include <unistd.h>

namespace kvex::host {
namespace {

/// As 2024-03-01T09:00:00+05:30.
std::string timestamp(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    char buffer[64];
    std::string text(buffer,
                     std::strftime(buffer, std::size(buffer), "%Y-%m-%dT%H:%M:%S%z", &local));
    return text.insert(text.size() - 2, 1, ':');
}

std::string field(std::u16string_view text) {
    return toUtf8(visible(withoutPasswords(text)));
}

std::filesystem::path ownLog() {
    const std::filesystem::path folder = stateFolder();
    if (folder.empty()) {
        return {};
    }
    // If the folder is missing, opening the log fails, and that is reported.
    static_cast<void>(makeOwnFolder(folder));
    return folder / "KVEX.log";
}

} // namespace

std::string logLine(std::time_t time, std::u16string_view text, const Error *error) {
    std::string line = timestamp(time) + '\t' + field(text);
    if (error != nullptr) {
        line += '\t' + std::to_string(error->number()) + '\t' + field(error->source()) + '\t' +
                field(error->description());
    }
    return line + '\n';
}

std::filesystem::path logPath(std::u16string_view logFile) {
    std::string path = toUtf8(logFile);
    if (const std::size_t at = path.rfind('\\'); at != std::string::npos) {
        path[at] = std::filesystem::path::preferred_separator;
    }
    return path;
}

int appendLine(const std::filesystem::path &file, std::string_view line) {
    const int log = open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (log < 0) {
        return errno;
    }
    ssize_t written = 0;
    do {
        written = write(log, line.data(), line.size());
    } while (written < 0 && errno == EINTR);
    const int failure = written < 0 ? errno : 0;
    close(log);
    return failure != 0 || static_cast<std::size_t>(written) == line.size() ? failure : ENOSPC;
}

std::filesystem::path portableFolder() {
    if (geteuid() == 0) {
        return {};
    }
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

void ErrorLog::append(std::u16string_view logFile, std::string_view line) {
    const std::filesystem::path wanted = chosen_.empty() ? logPath(logFile) : chosen_;
    const bool isForbidden =
        chosen_.empty() && (portable_.empty() || wanted.parent_path() != portable_);
    const int failure = isForbidden ? EPERM : appendLine(wanted, line);
    if (failure == 0) {
        lastFile_ = wanted;
        return;
    }
    const std::filesystem::path own = ownLog();
    if (!own.empty() && appendLine(own, line) == 0) {
        lastFile_ = own;
        return;
    }
    lastFile_.clear();
    std::cerr << "The error log " << toUtf8(visible(fromUtf8(wanted.string())))
              << " cannot be written (" << std::strerror(failure)
              << "): make it writable, or choose another file. The entry was: " << line
              << std::flush;
}

} // namespace kvex::host
