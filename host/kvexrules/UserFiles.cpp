#include "host/kvexrules/UserFiles.h"

#include "host/kvexrules/Failure.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <fstream>
#include <vector>

namespace kvex::host {
namespace {

constexpr std::size_t longest = std::size_t{256} * 1024 * 1024;

std::string shown(const std::string &file) {
    return toUtf8(visible(fromUtf8(file)));
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

void writeOwnersFile(const std::string &file, std::string_view text, Existing existing) {
    try {
        NewFile made(file, existing);
        made.write(text);
        made.keep();
    } catch (const Error &error) {
        const bool isTaken = error.number() == error_number::fileExists;
        throw Failure(toUtf8(error.description()),
                      isTaken ? exit_status::refused : exit_status::unusable);
    }
}

} // namespace kvex::host
