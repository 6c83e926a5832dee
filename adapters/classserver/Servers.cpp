#include "adapters/classserver/Servers.h"

#include <algorithm>
#include <dlfcn.h>
#include <utility>

namespace kvex {

HRESULT ServerModule::load(const std::filesystem::path &file, std::shared_ptr<ServerModule> &module,
                           std::string &reason) {
    module.reset();
    void *handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        const char *text = ::dlerror();
        reason = text == nullptr ? "" : text;
        return CO_E_DLLNOTFOUND;
    }
    const std::shared_ptr<ServerModule> loaded(new ServerModule(file, handle));
    if (loaded->getClassObject_ == nullptr) {
        return CO_E_ERRORINDLL;
    }
    module = loaded;
    return S_OK;
}

ServerModule::ServerModule(std::filesystem::path file, void *handle)
    : file_(std::move(file)), handle_(handle),
      getClassObject_(function<DllGetClassObjectFunction>("DllGetClassObject")),
      canUnloadNow_(function<DllCanUnloadNowFunction>("DllCanUnloadNow")) {}

ServerModule::~ServerModule() {
    ::dlclose(handle_);
}

template <class Function> Function *ServerModule::function(const char *name) const noexcept {
    return reinterpret_cast<Function *>(::dlsym(handle_, name));
}

HRESULT ServerModule::getClassObject(const CLSID &classId, const IID &interfaceId,
                                     void **object) const {
    return getClassObject_(classId, interfaceId, object);
}

bool ServerModule::canUnload() const {
    return canUnloadNow_ != nullptr && canUnloadNow_() == S_OK;
}

HRESULT ServerModule::registerServer() const {
    auto *const call = function<DllRegisterServerFunction>("DllRegisterServer");
    return call == nullptr ? CO_E_ERRORINDLL : call();
}

HRESULT ServerModule::unregisterServer() const {
    auto *const call = function<DllUnregisterServerFunction>("DllUnregisterServer");
    return call == nullptr ? CO_E_ERRORINDLL : call();
}

HRESULT Servers::module(const std::filesystem::path &file, std::shared_ptr<ServerModule> &module,
                        std::string &reason) const {
    {
        const std::lock_guard lock(mutex_);
        module = kept(file);
    }
    // Without the lock: loading runs the server's own code, which may call the class server.
    return module ? S_OK : ServerModule::load(file, module, reason);
}

void Servers::keep(const std::shared_ptr<ServerModule> &module) {
    const std::lock_guard lock(mutex_);
    if (!kept(module->file())) {
        kept_.push_back(module);
    }
}

void Servers::freeUnused() {
    // Declared before the lock, so they are unloaded after the lock, for the same reason.
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

} // namespace kvex
