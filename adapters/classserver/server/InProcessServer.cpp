#include "adapters/classserver/server/InProcessServer.h"

#include "adapters/classserver/ClassRegistration.h"
#include "adapters/classserver/server/Guard.h"

#include <algorithm>
#include <dlfcn.h>
#include <system_error>

namespace kvex {

std::filesystem::path modulePath() {
    static const char inThisModule = 0;
    Dl_info info{};
    if (::dladdr(&inThisModule, &info) == 0 || info.dli_fname == nullptr) {
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    }
    return std::filesystem::absolute(info.dli_fname);
}

namespace in_process_server {
namespace {

template <class Body> HRESULT selfRegistration(Body &&body) noexcept {
    const HRESULT result = guarded([&] {
        body();
        return S_OK;
    });
    const bool isPassedOn =
        SUCCEEDED(result) || result == E_OUTOFMEMORY || result == E_ACCESSDENIED;
    return isPassedOn ? result : SELFREG_E_CLASS;
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

} // namespace in_process_server
} // namespace kvex
