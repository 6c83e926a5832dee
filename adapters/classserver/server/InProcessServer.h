// What a loadable server's four entry points forward to, given the table of its classes.
#pragma once

#include "adapters/classserver/server/ClassFactory.h"

#include <span>

/// For the definitions of the four functions, beside `extern "C"`.
#define KVEX_SERVER_ENTRY_POINT __attribute__((visibility("default")))

namespace kvex {

struct ServedClass {
    CLSID classId;
    const char16_t *programId;
    const char16_t *description;
    Creator creator;
};

namespace in_process_server {

/// A class factory of the class. CLASS_E_CLASSNOTAVAILABLE when it is not in the table.
[[nodiscard]] HRESULT getClassObject(std::span<const ServedClass> classes, const CLSID &classId,
                                     const IID &interfaceId, void **object) noexcept;

/// S_OK when no object of this module is alive and nobody has locked it, else S_FALSE.
[[nodiscard]] HRESULT canUnloadNow() noexcept;

/// Registers the classes for the user, served by this module's file, or removes what he has
/// registered for them; either may be done again. SELFREG_E_CLASS when that fails, unless memory
/// (E_OUTOFMEMORY) or permission (E_ACCESSDENIED) is missing.
[[nodiscard]] HRESULT registerServer(std::span<const ServedClass> classes) noexcept;
[[nodiscard]] HRESULT unregisterServer(std::span<const ServedClass> classes) noexcept;

} // namespace in_process_server
} // namespace kvex
