#include "kvex/ClassServer.h"

#include "adapters/classserver/ClassRegistration.h"
#include "adapters/classserver/Servers.h"
#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/InProcessServer.h"
#include "kvex/ComPointer.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <string_view>

namespace {

using namespace kvex;

/// The class objects that this process has registered. Any number of threads may use it at once.
class ClassObjects {
public:
    /// Returns the registration, which is never 0.
    [[nodiscard]] std::uint32_t add(const CLSID &classId, IUnknown &classObject) {
        const std::lock_guard lock(mutex_);
        entries_.emplace(last_ + 1, Entry{classId, ComPointer<IUnknown>(&classObject)});
        return ++last_;
    }

    /// False for an unknown registration.
    [[nodiscard]] bool remove(std::uint32_t registration) noexcept {
        // Declared before the lock, so it is released after the lock: releasing it may call the
        // class server.
        decltype(entries_)::node_type removed;
        const std::lock_guard lock(mutex_);
        removed = entries_.extract(registration);
        return !removed.empty();
    }

    /// The one that was registered last; empty when there is none.
    [[nodiscard]] ComPointer<IUnknown> find(const CLSID &classId) const noexcept {
        const std::lock_guard lock(mutex_);
        const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const auto &entry) {
            return entry.second.classId == classId;
        });
        return found == entries_.rend() ? ComPointer<IUnknown>() : found->second.object;
    }

private:
    struct Entry {
        CLSID classId;
        ComPointer<IUnknown> object;
    };

    mutable std::mutex mutex_;
    std::uint32_t last_ = 0;
    std::map<std::uint32_t, Entry> entries_;
};

struct Process {
    ClassObjects classObjects;
    Servers servers;
};

/// Never destroyed: a host may release its last objects while it exits, and they need their server.
Process &process() {
    static Process &only = *new Process;
    return only;
}

std::string &loadErrorText() {
    thread_local std::string text;
    return text;
}

/// The class object of the server in `file`. The server stays loaded while `server` lives.
HRESULT classObjectFrom(const std::filesystem::path &file, const CLSID &classId,
                        const IID &interfaceId, std::shared_ptr<ServerModule> &server,
                        void **object) {
    if (const HRESULT result = process().servers.module(file, server, loadErrorText());
        FAILED(result)) {
        return result;
    }
    ComPointer<IUnknown> given;
    const HRESULT result = server->getClassObject(classId, interfaceId, given.putVoid());
    if (!given) {
        return FAILED(result) ? result : CO_E_ERRORINDLL;
    }
    process().servers.keep(server);
    *object = given.detach();
    return result;
}

HRESULT classObject(const CLSID &classId, const IID &interfaceId,
                    std::shared_ptr<ServerModule> &server, void **object) {
    if (const auto own = process().classObjects.find(classId)) {
        return own->QueryInterface(interfaceId, object);
    }
    if (const auto assigned = process().servers.assigned(classId)) {
        return classObjectFrom(*assigned, classId, interfaceId, server, object);
    }
    if (const auto registration = findClassRegistration(classId)) {
        return classObjectFrom(registration->server, classId, interfaceId, server, object);
    }
    return REGDB_E_CLASSNOTREG;
}

/// The absolute path that a host means with `path`.
std::filesystem::path serverFile(std::string_view path) {
    const bool isName = path.find('/') == std::string_view::npos;
    return isName ? modulePath().parent_path() / path : std::filesystem::absolute(path);
}

/// Runs `call` with the server in the file `path`.
template <class Call> HRESULT withServer(const char *path, Call &&call) noexcept {
    if (path == nullptr) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        std::shared_ptr<ServerModule> server;
        const HRESULT result = process().servers.module(serverFile(path), server, loadErrorText());
        return FAILED(result) ? result : call(*server);
    });
}

} // namespace

HRESULT CoRegisterClassObject(const CLSID &classId, IUnknown *classObject,
                              std::uint32_t *registration) noexcept {
    if (registration == nullptr) {
        return E_POINTER;
    }
    *registration = 0;
    if (classObject == nullptr) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        *registration = process().classObjects.add(classId, *classObject);
        return S_OK;
    });
}

HRESULT CoRevokeClassObject(std::uint32_t registration) noexcept {
    return guarded(
        [&] { return process().classObjects.remove(registration) ? S_OK : CO_E_OBJNOTREG; });
}

HRESULT CoGetClassObject(const CLSID &classId, const IID &interfaceId, void **object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    return guarded([&] {
        std::shared_ptr<ServerModule> server;
        return classObject(classId, interfaceId, server, object);
    });
}

HRESULT CoCreateInstance(const CLSID &classId, IUnknown *outer, const IID &interfaceId,
                         void **object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    return guarded([&] {
        // Declared before the factory, so that the server outlives it.
        std::shared_ptr<ServerModule> server;
        ComPointer<IClassFactory> factory;
        const HRESULT result = classObject(classId, IClassFactory::iid, server, factory.putVoid());
        return FAILED(result) ? result : factory->CreateInstance(outer, interfaceId, object);
    });
}

HRESULT CLSIDFromProgID(const char16_t *programId, CLSID *classId) noexcept {
    if (classId == nullptr) {
        return E_POINTER;
    }
    *classId = {};
    if (programId == nullptr) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        const auto registration = findClassRegistration(std::u16string_view(programId));
        if (!registration) {
            return CO_E_CLASSSTRING;
        }
        *classId = registration->classId;
        return S_OK;
    });
}

void CoFreeUnusedLibraries() noexcept {
    static_cast<void>(guarded([] {
        process().servers.freeUnused();
        return S_OK;
    }));
}

HRESULT CoLoadServer(const char *path, const CLSID &classId) noexcept {
    if (path == nullptr) {
        return E_INVALIDARG;
    }
    return guarded([&] {
        const std::filesystem::path file = serverFile(path);
        std::shared_ptr<ServerModule> server;
        ComPointer<IUnknown> object;
        const HRESULT result =
            classObjectFrom(file, classId, IUnknown::iid, server, object.putVoid());
        if (SUCCEEDED(result)) {
            process().servers.assign(classId, file);
        }
        return result;
    });
}

HRESULT CoRegisterServer(const char *path) noexcept {
    return withServer(path, [](const ServerModule &server) { return server.registerServer(); });
}

HRESULT CoUnregisterServer(const char *path) noexcept {
    return withServer(path, [](const ServerModule &server) { return server.unregisterServer(); });
}

const char *CoLoadErrorText() noexcept {
    return loadErrorText().c_str();
}
