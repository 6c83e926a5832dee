#include "adapters/classserver/server/ServerObject.h"

#include "adapters/classserver/server/Guard.h"

#include <atomic>
#include <cstddef>

namespace kvex {
namespace module_count {
namespace {

std::atomic<std::size_t> objects{0};
std::atomic<std::size_t> locks{0};

} // namespace

void addObject() noexcept {
    ++objects;
}
void removeObject() noexcept {
    --objects;
}

void addLock() noexcept {
    ++locks;
}
bool removeLock() noexcept {
    std::size_t held = locks;
    while (held > 0) {
        if (locks.compare_exchange_weak(held, held - 1)) {
            return true;
        }
    }
    return false;
}

bool isInUse() noexcept {
    return objects > 0 || locks > 0;
}

} // namespace module_count

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
