// What the class server offers a host beyond the platform's functions: servers named by their
// file. Paths are absolute or relative to the working directory.
#pragma once

#include "platform/Component.h"

extern "C" {
/// From now on this process gets the class from the server in the file `path`, registered or not;
/// a class object that the process registered itself goes before. Fails, and changes nothing, with
/// CO_E_DLLNOTFOUND when the file cannot be loaded, CO_E_ERRORINDLL when it is no server, and
/// with what the server says when it does not give the class.
KVEX_CLASS_SERVER_API HRESULT CoLoadServer(const char *path, const CLSID &classId) noexcept;

/// Calls the DllRegisterServer or DllUnregisterServer of the server in the file `path` and gives
/// its result; fails as CoLoadServer does.
KVEX_CLASS_SERVER_API HRESULT CoRegisterServer(const char *path) noexcept;
KVEX_CLASS_SERVER_API HRESULT CoUnregisterServer(const char *path) noexcept;

/// Why the calling thread's last CO_E_DLLNOTFOUND came, in the loader's words, UTF-8; "" before
/// the first. Valid until the thread's next call of the class server.
KVEX_CLASS_SERVER_API const char *CoLoadErrorText() noexcept;
}
