// What the class server offers a host besides the functions of kvex/Component.h: servers by their
// file, and texts in UTF-8. Any number of threads may call these functions at once.
//
// A `path` with a slash is absolute or relative to the working directory. A name without a slash is
// a file in the class server's own folder. So "libKVEXMessageRules.so" and "libKVEXHostSuite.so"
// are the component and the suite of the same version, wherever the kit is installed.
#pragma once

#include "kvex/Component.h"

extern "C" {
/// From now on this process gets the class from the server in the file `path`, registered or not.
/// A class object that the process itself has registered still comes first. The last file that was
/// named for a class counts. Fails with E_INVALIDARG for a null `path`, with CO_E_DLLNOTFOUND when
/// the file cannot be loaded, and with CO_E_ERRORINDLL when it is no server. Fails with the
/// server's own result when the server does not give the class. A failed call changes nothing.
KVEX_CLASS_SERVER_API HRESULT CoLoadServer(const char *path, const CLSID &classId) noexcept;

/// Registers or unregisters, for the user, the classes of the server in the file `path`. Both may
/// be repeated. Fails to load the file as CoLoadServer does. Fails with E_ACCESSDENIED without
/// permission to write the registration, with E_OUTOFMEMORY without memory, and with
/// SELFREG_E_CLASS for any other reason.
KVEX_CLASS_SERVER_API HRESULT CoRegisterServer(const char *path) noexcept;
KVEX_CLASS_SERVER_API HRESULT CoUnregisterServer(const char *path) noexcept;

/// The loader's reason for the last CO_E_DLLNOTFOUND on the calling thread, in UTF-8; "" before the
/// first. The class server owns it. Valid until the thread next calls the class server.
KVEX_CLASS_SERVER_API const char *CoLoadErrorText() noexcept;

/// Allocates a text and copies the `length` bytes of `text`, which are UTF-8. Each byte that cannot
/// be read becomes U+FFFD. A null `text` gives "". Null when there is no memory. The caller frees
/// the text with SysFreeString.
KVEX_CLASS_SERVER_API BSTR SysAllocUtf8(const char *text, std::uint32_t length) noexcept;
/// Writes the text in UTF-8 to `target`, if `room` bytes are enough for it, without a NUL at its
/// end. Returns the number of bytes that it needs; 0 also when there is no memory. A code unit that
/// belongs to no character becomes U+FFFD. `target` may be null when `room` is 0.
KVEX_CLASS_SERVER_API std::uint32_t SysGetUtf8(BSTR text, char *target,
                                               std::uint32_t room) noexcept;
}
