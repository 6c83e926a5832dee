// The error log: one entry, its file, and appending to it.
#pragma once

#include "platform/Error.h"

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::host {

/// One entry of the log, in UTF-8 with its newline. It has the local date and time with the offset
/// from UTC, then `text`. If `error` is not null, its number, source and description follow. Tabs
/// separate these fields. Within a field, control characters are escaped, and passwords are "***".
[[nodiscard]] std::string logLine(std::time_t time, std::u16string_view text, const Error *error);

/// `logFile` as a path of this system. The component joins its directory and the file's name with
/// a backslash, so the last backslash becomes a separator. Others stay: they belong to names.
[[nodiscard]] std::filesystem::path logPath(std::u16string_view logFile);

/// Appends `line` in one write. Creates a missing file, which only its owner can use. Returns 0, or
/// the system's error number when the line was not written, or only a part of it.
[[nodiscard]] int appendLine(const std::filesystem::path &file, std::string_view line);

/// The folder of the running program, in which a program that is carried about keeps its log. ""
/// for root, who can write to every folder, also where a log does not belong.
[[nodiscard]] std::filesystem::path portableFolder();

class ErrorLog {
public:
    /// `chosen` is the file for all entries. If it is empty, callers name the file, and it counts
    /// when it is in the folder `portable`. So the log of an installed program, whose component is
    /// in a folder of its own, never stands there.
    explicit ErrorLog(std::filesystem::path chosen = {},
                      std::filesystem::path portable = portableFolder())
        : chosen_(std::move(chosen)), portable_(std::move(portable)) {}

    /// Appends `line` to the chosen file, else to `logFile` when it counts. When neither is there
    /// or can be written, it appends to KVEX.log in the user's state folder. When that fails as
    /// well, it writes the line to standard error, with a sentence that says why.
    void append(std::u16string_view logFile, std::string_view line);

    /// The file of the last line. Empty before the first, and after one to standard error.
    [[nodiscard]] const std::filesystem::path &lastFile() const { return lastFile_; }

private:
    std::filesystem::path chosen_;
    std::filesystem::path portable_;
    std::filesystem::path lastFile_;
};

} // namespace kvex::host
