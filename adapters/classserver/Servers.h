// The servers that this process has loaded, and the servers that a host has named for a class.
#pragma once

#include "adapters/classserver/server/EntryPoints.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvex {

/// One loaded server. It is unloaded when its last owner releases it.
class ServerModule {
public:
    /// Fails with CO_E_DLLNOTFOUND when the file cannot be loaded; `reason` then holds what the
    /// loader says. Fails with CO_E_ERRORINDLL when the file is no server. `module` is empty
    /// after a failure.
    [[nodiscard]] static HRESULT load(const std::filesystem::path &file,
                                      std::shared_ptr<ServerModule> &module, std::string &reason);
    ServerModule(const ServerModule &) = delete;
    ServerModule &operator=(const ServerModule &) = delete;
    ~ServerModule();

    [[nodiscard]] const std::filesystem::path &file() const noexcept { return file_; }
    [[nodiscard]] HRESULT getClassObject(const CLSID &classId, const IID &interfaceId,
                                         void **object) const;
    /// False also for a server without DllCanUnloadNow.
    [[nodiscard]] bool canUnload() const;
    /// Both fail with CO_E_ERRORINDLL when the server has no such function.
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

/// Any number of threads may use it at once. A server stays loaded while a caller holds its module
/// or while it is kept here. Call keep when a server has given out an object.
class Servers {
public:
    /// Finds the kept module of the file, or else loads it. Fails as ServerModule::load does.
    [[nodiscard]] HRESULT module(const std::filesystem::path &file,
                                 std::shared_ptr<ServerModule> &module, std::string &reason) const;
    void keep(const std::shared_ptr<ServerModule> &module);
    /// Releases every kept server that can be unloaded. A caller that still holds such a module,
    /// and gets an object from it, must keep it again.
    void freeUnused();

    /// From now on the server of `classId` is `file`.
    void assign(const CLSID &classId, const std::filesystem::path &file);
    [[nodiscard]] std::optional<std::filesystem::path> assigned(const CLSID &classId) const;

private:
    [[nodiscard]] std::shared_ptr<ServerModule> kept(const std::filesystem::path &file) const;

    mutable std::mutex mutex_;
    std::vector<std::shared_ptr<ServerModule>> kept_;
    std::vector<std::pair<CLSID, std::filesystem::path>> assigned_;
};

} // namespace kvex
