#include "adapters/classserver/server/InProcessServer.h"

#include "adapters/classserver/ClassRegistration.h"
#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/ModulePath.h"

#include <algorithm>

namespace kvex::in_process_server {
namespace {

template <class Body> HRESULT selfRegistration(Body &&body) noexcept {
    const HRESULT result = guarded([&] {
        body();
        return S_OK;
    });
    const bool isTold = SUCCEEDED(result) || result == E_OUTOFMEMORY || result == E_ACCESSDENIED;
    return isTold ? result : SELFREG_E_CLASS;
}

} // namespace

HRESULT getClassObject(std::span<const ServedClass> classes, const CLSID &classId,
                       const IID &interfaceId, void **object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    const auto served = std::ranges::find(classes, classId, &ServedClass::classId);
    if (served == classes.end()) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    return guarded([&] {
        return makeComObject<ClassFactory>(served->creator)->QueryInterface(interfaceId, object);
    });
}

HRESULT canUnloadNow() noexcept {
    return module_count::isInUse() ? S_FALSE : S_OK;
}

HRESULT registerServer(std::span<const ServedClass> classes) noexcept {
    return selfRegistration([&] {
        const std::filesystem::path server = modulePath();
        for (const ServedClass &served : classes) {
            writeClassRegistration({served.classId, server, served.programId, served.description});
        }
    });
}

HRESULT unregisterServer(std::span<const ServedClass> classes) noexcept {
    return selfRegistration([&] {
        for (const ServedClass &served : classes) {
            removeClassRegistration(served.classId);
        }
    });
}

} // namespace kvex::in_process_server
