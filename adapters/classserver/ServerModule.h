// One loaded server.
#pragma once

#include "platform/Component.h"

#include <filesystem>
#include <memory>
#include <string>

namespace kvex::classserver {

/// Unloaded when the last owner goes.
class ServerModule {
public:
    /// CO_E_DLLNOTFOUND and the loader's reason in `reason`, or CO_E_ERRORINDLL; `module` is
    /// empty then.
    [[nodiscard]] static HRESULT load(const std::filesystem::path &file,
                                      std::shared_ptr<ServerModule> &module, std::string &reason);
    ServerModule(const ServerModule &) = delete;
    ServerModule &operator=(const ServerModule &) = delete;
    ~ServerModule();

    [[nodiscard]] const std::filesystem::path &file() const noexcept { return file_; }
    [[nodiscard]] HRESULT getClassObject(const CLSID &classId, const IID &interfaceId,
                                         void **object) const;
    /// False, too, for a server that does not say.
    [[nodiscard]] bool canUnload() const;
    /// CO_E_ERRORINDLL when the server does not offer it.
    [[nodiscard]] HRESULT registerServer() const;
    [[nodiscard]] HRESULT unregisterServer() const;

private:
    ServerModule(std::filesystem::path file, void *handle);
    template <class Function> [[nodiscard]] Function *function(const char *name) const noexcept;

    std::filesystem::path file_;
    void *handle_;
    DllGetClassObjectFunction *getClassObject_;
    DllCanUnloadNowFunction *canUnloadNow_;
};

} // namespace kvex::classserver
