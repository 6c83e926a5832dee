// Implements the four entry points of a loadable server, given the table of its classes.
#pragma once

#include "adapters/classserver/server/ServerObject.h"

#include <filesystem>
#include <span>

/// For the definitions of the four entry points, together with `extern "C"`.
#define KVEX_SERVER_ENTRY_POINT __attribute__((visibility("default")))

namespace kvex {

/// The absolute path of the library or program that this code is linked into. Throws a
/// std::system_error when the loader does not know it.
[[nodiscard]] std::filesystem::path modulePath();

struct ServedClass {
    CLSID classId;
    const char16_t *programId;
    const char16_t *description;
    Creator creator;
};

namespace in_process_server {

/// Stores the class's factory in `*object`. Fails with CLASS_E_CLASSNOTAVAILABLE when the table
/// does not have the class.
[[nodiscard]] HRESULT getClassObject(std::span<const ServedClass> classes, const CLSID &classId,
                                     const IID &interfaceId, void **object) noexcept;

/// S_OK when this module has no object and no lock, else S_FALSE.
[[nodiscard]] HRESULT canUnloadNow() noexcept;

/// Registers the classes for the user with this module's file as their server, or removes the
/// user's registrations of them. Either may be repeated. Fails with E_OUTOFMEMORY without memory,
/// with E_ACCESSDENIED without permission, and else with SELFREG_E_CLASS.
[[nodiscard]] HRESULT registerServer(std::span<const ServedClass> classes) noexcept;
[[nodiscard]] HRESULT unregisterServer(std::span<const ServedClass> classes) noexcept;

} // namespace in_process_server
} // namespace kvex
