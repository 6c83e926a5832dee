// A new file that appears whole or not at all.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::error_number {
inline constexpr std::int32_t fileExists = 58;
} // namespace kvex::error_number

namespace kvex::host {

/// What SQLite adds to the name of a database for the files beside it.
inline constexpr std::array<std::string_view, 3> besideDatabase{"-journal", "-wal", "-shm"};

enum class Existing { refuse, replace };

/// Holds an empty file beside the new one. Only its owner can use it. The caller fills it, then
/// keeps it under its own name. The destructor removes it when it was not kept.
class NewFile {
public:
    /// Fails with badArgument when the folder cannot be written. Fails with fileExists when the
    /// file is there and must not be replaced.
    NewFile(const std::filesystem::path &file, Existing existing);
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    /// The path of the file to fill.
    [[nodiscard]] const std::string &path() const noexcept { return made_; }
    /// Adds the text at the end of the file. Fails with badArgument when that fails.
    void write(std::string_view text);
    /// Gives the filled file its name once the disk has all of it. Nobody may have it open. Fails
    /// as the constructor does; nothing is there then, or the old file.
    void keep();

private:
    std::filesystem::path file_;
    Existing existing_;
    std::string made_;
};

} // namespace kvex::host
