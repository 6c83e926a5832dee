#include "host/kvexrules/UserFiles.h"

#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace kvex::host {
namespace {

constexpr std::size_t longest = std::size_t{256} * 1024 * 1024;

std::string shown(const std::string &file) {
    return toUtf8(visible(fromUtf8(file)));
}

[[noreturn]] void failToWrite(const std::string &file, int error) {
    throw Failure(shown(file) + " cannot be written (" + std::strerror(error) +
                  "). Name a file in a folder that you may write to.");
}

/// Writes `text` to `descriptor` and closes it. Returns 0 or the system's error number.
int writeAndClose(int descriptor, std::string_view text) {
    int error = writeAll(descriptor, text);
    if (error == 0 && fsync(descriptor) != 0) {
        error = errno;
    }
    if (close(descriptor) != 0 && error == 0) {
        error = errno;
    }
    return error;
}

} // namespace

std::string inputName(const std::string &file) {
    return file == "-" ? "standard input" : shown(file);
}

std::string contentOf(const std::string &file, std::string_view wanted) {
    std::ifstream stream(file == "-" ? "/dev/stdin" : file, std::ios::binary);
    std::string content;
    std::vector<char> room(std::size_t{64} * 1024);
    while (stream.good() && content.size() <= longest) {
        stream.read(room.data(), static_cast<std::streamsize>(room.size()));
        content.append(room.data(), static_cast<std::size_t>(stream.gcount()));
    }
    if (content.size() > longest) {
        throw Failure(inputName(file) + " is longer than 256 MiB. Name " + std::string(wanted) +
                      ", or split it into several files.");
    }
    if (!stream.eof()) {
        throw Failure(inputName(file) + " cannot be read. Name " + std::string(wanted) + ".");
    }
    if (content.empty()) {
        throw Failure(inputName(file) + " is empty. Name " + std::string(wanted) + ".");
    }
    return content;
}

void writeOwnersFile(const std::string &file, std::string_view text, bool replaces) {
    constexpr int owners = 0600;
    std::string made = replaces ? file + ".XXXXXX" : file;
    const int descriptor =
        replaces ? mkostemp(made.data(), O_CLOEXEC)
                 : open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, owners); // NOLINT
    if (descriptor < 0 && errno == EEXIST) {
        throw Failure(shown(file) +
                          " already exists and was not changed. Name another file, or add "
                          "--replace.",
                      exit_status::refused);
    }
    if (descriptor < 0) {
        failToWrite(file, errno);
    }
    int error = writeAndClose(descriptor, text);
    if (error == 0 && replaces && std::rename(made.c_str(), file.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(made.c_str());
        failToWrite(file, error);
    }
}

} // namespace kvex::host
