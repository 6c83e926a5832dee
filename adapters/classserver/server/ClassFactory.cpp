#include "adapters/classserver/server/ClassFactory.h"

#include "adapters/classserver/server/Guard.h"

namespace kvex {

HRESULT ClassFactory::CreateInstance(IUnknown *outer, const IID &interfaceId,
                                     void **object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    return guarded([&] { return creator_()->QueryInterface(interfaceId, object); });
}

HRESULT ClassFactory::LockServer(bool lock) noexcept {
    if (lock) {
        module_count::addLock();
        return S_OK;
    }
    return module_count::removeLock() ? S_OK : E_UNEXPECTED;
}

} // namespace kvex
