// The base of every component object: counts its references and itself in the module, and finds
// its interfaces.
#pragma once

#include "adapters/classserver/server/ModuleCount.h"
#include "platform/ComPointer.h"

#include <atomic>
#include <utility>

namespace kvex {

/// Derive from it with the object's interfaces, the default one first, implement their functions
/// and create objects with makeComObject. The destructor, private or protected in the derived
/// class, runs at the last Release and may not raise.
template <class Default, class... Others> class ComObject : public Default, public Others... {
public:
    ComObject(const ComObject &) = delete;
    ComObject &operator=(const ComObject &) = delete;

    HRESULT QueryInterface(const IID &interfaceId, void **object) noexcept final {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        const auto offer = [&]<class Interface>(Interface *self, const IID &offered) {
            if (*object == nullptr && interfaceId == offered) {
                *object = self;
            }
        };
        // One address is the object's identity, whichever interface is asked for IUnknown.
        offer(static_cast<Default *>(this), IUnknown::iid);
        offer(static_cast<Default *>(this), Default::iid);
        (offer(static_cast<Others *>(this), Others::iid), ...);
        if (*object == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG AddRef() noexcept final { return ++references_; }
    ULONG Release() noexcept final {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    /// Born with one reference, the creator's.
    ComObject() noexcept { module_count::addObject(); }
    virtual ~ComObject() { module_count::removeObject(); }

private:
    std::atomic<ULONG> references_{1};
};

/// A new object; what its constructor raises passes to the caller.
template <class Object, class... Arguments>
[[nodiscard]] ComPointer<Object> makeComObject(Arguments &&...arguments) {
    return ComPointer<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace kvex
