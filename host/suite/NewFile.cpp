#include "host/suite/NewFile.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace kvex::host {
namespace {

[[noreturn]] void failToWrite(const std::filesystem::path &file, int error) {
    throw Error(error_number::badArgument,
                visible(fromUtf8(file.native())) + u" cannot be written (" +
                    fromUtf8(std::strerror(error)) +
                    u"). Name a file in a folder that you may write to, on a disk with free "
                    u"space.");
}

[[noreturn]] void refuseExisting(const std::filesystem::path &file) {
    throw Error(error_number::fileExists,
                visible(fromUtf8(file.native())) +
                    u" already exists and was not changed. Name another file, or add --replace.");
}

bool isThere(const std::string &path) {
    return ::access(path.c_str(), F_OK) == 0;
}

/// Returns 0 or the system's error number.
int synchronised(const char *path, int flags) {
    const int descriptor = ::open(path, flags | O_CLOEXEC); // NOLINT
    if (descriptor < 0) {
        return errno;
    }
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}

/// Gives the file the name `to`. Returns 0 or the system's error number: EEXIST when the name is
/// taken and may not be.
int renamed(const std::string &from, const std::string &to, Existing existing) {
    const unsigned int flags = existing == Existing::refuse ? RENAME_NOREPLACE : 0U;
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0) {
        return 0;
    }
    // Not every file system can refuse by itself.
    if (errno != EINVAL || flags == 0) {
        return errno;
    }
    if (isThere(to)) {
        return EEXIST;
    }
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

} // namespace

NewFile::NewFile(const std::filesystem::path &file, Existing existing)
    : file_(file), existing_(existing) {
    if (existing == Existing::refuse && isThere(file_.native())) {
        refuseExisting(file_);
    }
    made_ = file_.native() + ".part-XXXXXX";
    const int descriptor = ::mkostemp(made_.data(), O_CLOEXEC);
    if (descriptor < 0) {
        failToWrite(file_, errno);
    }
    ::close(descriptor);
}

NewFile::~NewFile() {
    if (!made_.empty()) {
        ::unlink(made_.c_str());
        for (const std::string_view ending : besideDatabase) {
            ::unlink((made_ + std::string(ending)).c_str());
        }
    }
}

void NewFile::write(std::string_view text) {
    const int descriptor = ::open(made_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC); // NOLINT
    if (descriptor < 0) {
        failToWrite(file_, errno);
    }
    int error = 0;
    while (!text.empty() && error == 0) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            error = errno;
        }
    }
    if (::close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    if (error != 0) {
        failToWrite(file_, error);
    }
}

void NewFile::keep() {
    // A log that SQLite could not write back holds a part of the content.
    if (isThere(made_ + "-wal")) {
        failToWrite(file_, ENOSPC);
    }
    if (const int error = synchronised(made_.c_str(), O_RDONLY)) {
        failToWrite(file_, error);
    }
    if (const int error = renamed(made_, file_.native(), existing_)) {
        if (error == EEXIST) {
            refuseExisting(file_);
        }
        failToWrite(file_, error);
    }
    made_.clear();
    // The file is there; only a loss of power could still undo its name.
    static_cast<void>(synchronised(std::filesystem::absolute(file_).parent_path().c_str(),
                                   O_RDONLY | O_DIRECTORY));
}

} // namespace kvex::host
