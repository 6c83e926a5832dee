// Registered classes: one file for each class, `{CLASS-ID}.class`, in one of the class directories.
//
// The file is UTF-8. Each line is "key=value" and ends with a line feed; the value is everything
// after the first "=". The keys:
// - Server: the path of the server's file. A relative path begins at the folder of this file, so
//   that an installed program can be moved. Required.
// - ProgramId: the name of the class.
// - Description.
// A reader skips empty lines, lines that begin with "#" and unknown keys. It ignores a file of any
// other form and continues the search.
#pragma once

#include "kvex/Component.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex {

struct ClassRegistration {
    CLSID classId;
    /// Absolute.
    std::filesystem::path server;
    /// "" when the class has no name.
    std::u16string programId;
    std::u16string description;
};

/// `$XDG_DATA_HOME/kvex/classes`, else `$HOME/.local/share/kvex/classes`. Nothing when neither
/// variable holds an absolute path. A program with more rights than its user ignores the variables
/// here and below: they would let the user choose what it loads.
[[nodiscard]] std::optional<std::filesystem::path> userClassDirectory();

/// The directories in the order of search: the user's, then `kvex/classes` in each directory of
/// `$XDG_DATA_DIRS`. The default of that variable is /usr/local/share:/usr/share. Its relative
/// paths are skipped.
[[nodiscard]] std::vector<std::filesystem::path> classDirectories();

/// Registers a class for the user and replaces what the user had registered for its id. Readers
/// see the whole old file or the whole new one, which the umask lets others use or not. After a
/// failure the old file is unchanged.
/// Throws an Error with invalidCall when `server` is not absolute or a text contains a line feed.
/// Throws a std::system_error when the file cannot be written or the user has no directory.
void writeClassRegistration(const ClassRegistration &registration);

/// Removes the user's registration of the class, if there is one. Throws a std::system_error when
/// it cannot be removed.
void removeClassRegistration(const CLSID &classId);

/// The registration in the first directory that has a readable one.
[[nodiscard]] std::optional<ClassRegistration> findClassRegistration(const CLSID &classId);
/// Finds a class by its name; the case of ASCII letters does not matter. Within a directory the
/// first file in alphabetical order counts. Nothing for "": no class has that name.
[[nodiscard]] std::optional<ClassRegistration> findClassRegistration(std::u16string_view programId);

} // namespace kvex
