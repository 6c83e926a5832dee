// The servers that this process uses: the loaded ones, and the files it was told a class is in.
#pragma once

#include "adapters/classserver/ServerModule.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvex::classserver {

/// For any number of threads. A server is loaded as long as somebody holds its module or it is
/// kept here; it is kept from the moment it has given out its first object.
class Servers {
public:
    /// The kept module of the file, else one that is loaded now; fails as ServerModule::load does.
    [[nodiscard]] HRESULT module(const std::filesystem::path &file,
                                 std::shared_ptr<ServerModule> &module, std::string &reason) const;
    void keep(const std::shared_ptr<ServerModule> &module);
    /// Lets go of every kept server that can be unloaded. Whoever holds a module meanwhile keeps
    /// it again when he has got an object from it.
    void freeUnused();

    /// From now on `classId` is in `file`.
    void assign(const CLSID &classId, const std::filesystem::path &file);
    [[nodiscard]] std::optional<std::filesystem::path> assigned(const CLSID &classId) const;

private:
    [[nodiscard]] std::shared_ptr<ServerModule> kept(const std::filesystem::path &file) const;

    mutable std::mutex mutex_;
    std::vector<std::shared_ptr<ServerModule>> kept_;
    std::vector<std::pair<CLSID, std::filesystem::path>> assigned_;
};

} // namespace kvex::classserver
