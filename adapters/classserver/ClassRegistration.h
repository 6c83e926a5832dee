// Registered classes: one file a class, `{CLASS-ID}.class`, in the directories of
// ClassDirectories.h.
//
// The file is UTF-8, in lines "key=value" that each end with a line feed; the value is everything
// after the first "=". Keys: Server, the absolute path of the server's file, always there;
// ProgramId, the class's name; Description. Lines that are empty or begin with "#" and keys of
// other names say nothing. A file that is not so is passed over, and the search goes on.
#pragma once

#include "platform/Component.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kvex {

struct ClassRegistration {
    CLSID classId;
    std::filesystem::path server;
    /// "" when the class has no name.
    std::u16string programId;
    std::u16string description;
};

/// Registers a class for the user, in place of what he had registered for its id. Readers see the
/// old file or the new one, whole; after a failure the old one stands. An Error with invalidCall
/// when `server` is not absolute or a text has a line feed; a std::system_error when the file
/// cannot be written or the user has no directory.
void writeClassRegistration(const ClassRegistration &registration);

/// Removes the user's registration of the class, if there is one. A std::system_error when it
/// cannot be removed.
void removeClassRegistration(const CLSID &classId);

/// The first directory's that has one.
[[nodiscard]] std::optional<ClassRegistration> findClassRegistration(const CLSID &classId);
/// By the class's name, the case of ASCII letters ignored; in one directory the first by file name.
/// No class has the name "".
[[nodiscard]] std::optional<ClassRegistration> findClassRegistration(std::u16string_view programId);

} // namespace kvex
