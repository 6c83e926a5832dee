// What the class server offers a host besides the functions of kvex/Component.h: it loads
// servers by file. A path is absolute or relative to the working directory.
#pragma once

#include "kvex/Component.h"

extern "C" {
/// From now on this process gets the class from the server in the file `path`, registered or not.
/// A class object that the process itself has registered still comes first. Fails with
/// CO_E_DLLNOTFOUND when the file cannot be loaded, and with CO_E_ERRORINDLL when it is no server.
/// Fails with the server's own result when the server does not give the class. A failed call
/// changes nothing.
KVEX_CLASS_SERVER_API HRESULT CoLoadServer(const char *path, const CLSID &classId) noexcept;

/// Calls DllRegisterServer or DllUnregisterServer of the server in the file `path` and returns its
/// result. Fails to load the file as CoLoadServer does.
KVEX_CLASS_SERVER_API HRESULT CoRegisterServer(const char *path) noexcept;
KVEX_CLASS_SERVER_API HRESULT CoUnregisterServer(const char *path) noexcept;

/// The loader's reason for the last CO_E_DLLNOTFOUND on the calling thread, in UTF-8; "" before the
/// first. Valid until the thread next calls the class server.
KVEX_CLASS_SERVER_API const char *CoLoadErrorText() noexcept;
}
