// The error log's file: where it is, and appending to it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::host {

/// `logFile` as a path of this system: the last backslash, with which the component joins its
/// directory and the file's name, is a separator. Any other belongs to a name.
[[nodiscard]] std::filesystem::path logPath(std::u16string_view logFile);

/// Appends `line` in one write, and creates the file, for its owner only, where there is none.
/// 0, or the system's error number: then nothing or not all of it was written.
[[nodiscard]] int appendLine(const std::filesystem::path &file, std::string_view line);

/// True for root, who may write everywhere: also beside the installed libraries, where no log
/// belongs.
[[nodiscard]] bool runsAsRoot();

class ErrorLog {
public:
    /// `chosen`: the file for all entries, whatever their callers say; empty when none is.
    /// `asRoot`: entries without a chosen file never go to the file that their callers name.
    explicit ErrorLog(std::filesystem::path chosen = {}, bool asRoot = runsAsRoot())
        : chosen_(std::move(chosen)), asRoot_(asRoot) {}

    /// Appends `line` to the chosen file, else to `logFile`; when that cannot or must not be done,
    /// to KVEX.log in the user's state folder. When that fails too, the line goes to standard
    /// error with a sentence that says so.
    void append(std::u16string_view logFile, std::string_view line);

    /// The file that the last line went to; empty before, and when it went to standard error.
    [[nodiscard]] const std::filesystem::path &lastFile() const { return lastFile_; }

private:
    std::filesystem::path chosen_;
    bool asRoot_;
    std::filesystem::path lastFile_;
};

} // namespace kvex::host
