#include "adapters/classserver/Servers.h"

#include <algorithm>
#include <iterator>

namespace kvex::classserver {

HRESULT Servers::module(const std::filesystem::path &file, std::shared_ptr<ServerModule> &module,
                        std::string &reason) const {
    {
        const std::lock_guard lock(mutex_);
        module = kept(file);
    }
    // Loading runs the server's own code, which may need the class server: not under the lock.
    return module ? S_OK : ServerModule::load(file, module, reason);
}

void Servers::keep(const std::shared_ptr<ServerModule> &module) {
    const std::lock_guard lock(mutex_);
    if (!kept(module->file())) {
        kept_.push_back(module);
    }
}

void Servers::freeUnused() {
    // Unloaded when the lock is free again, for the same reason.
    std::vector<std::shared_ptr<ServerModule>> unused;
    const std::lock_guard lock(mutex_);
    unused.reserve(kept_.size());
    std::erase_if(kept_, [&](const std::shared_ptr<ServerModule> &module) {
        if (!module->canUnload()) {
            return false;
        }
        unused.push_back(module);
        return true;
    });
}

void Servers::assign(const CLSID &classId, const std::filesystem::path &file) {
    const std::lock_guard lock(mutex_);
    const auto found =
        std::ranges::find(assigned_, classId, &decltype(assigned_)::value_type::first);
    if (found == assigned_.end()) {
        assigned_.emplace_back(classId, file);
    } else {
        found->second = file;
    }
}

std::optional<std::filesystem::path> Servers::assigned(const CLSID &classId) const {
    const std::lock_guard lock(mutex_);
    const auto found =
        std::ranges::find(assigned_, classId, &decltype(assigned_)::value_type::first);
    return found == assigned_.end() ? std::nullopt : std::optional(found->second);
}

std::shared_ptr<ServerModule> Servers::kept(const std::filesystem::path &file) const {
    const auto found =
        std::ranges::find(kept_, file, [](const auto &module) { return module->file(); });
    return found == kept_.end() ? nullptr : *found;
}

} // namespace kvex::classserver
