// A new file that appears whole or not at all.
#pragma once

#include <filesystem>
#include <string>

namespace kvex::host {

enum class Existing { refuse, replace };

/// Holds an empty file beside the new one. Only its owner can use it. The caller fills it, then
/// keeps it under its own name. The destructor removes it when it was not kept.
class NewFile {
public:
    /// Fails with badArgument when the folder cannot be written, or the name is no UTF-8. Fails
    /// with it too when SQLite's files of another database stand beside the name. So it does with
    /// Existing::refuse when the file is there.
    NewFile(const std::filesystem::path &file, Existing existing);
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    /// The path of the file to fill.
    [[nodiscard]] const std::string &path() const noexcept { return made_; }
    /// Gives the filled file its name once the disk has all of it. Nobody may have it open. Fails
    /// with badArgument when that fails; nothing is there then, or the old file.
    void keep();

private:
    std::filesystem::path file_;
    Existing existing_;
    std::string made_;
};

} // namespace kvex::host
