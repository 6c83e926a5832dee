#include "adapters/classserver/ServerModule.h"

#include <dlfcn.h>
#include <utility>

namespace kvex::classserver {

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

} // namespace kvex::classserver
