// The base class of component objects: it counts references and finds the object's interfaces.
#pragma once

#include "kvex/ComPointer.h"

#include <atomic>
#include <utility>

namespace kvex {

/// Derive a class from it with the object's interfaces, the default one first, and implement their
/// functions. Create objects with makeComObject. Make the destructor private or protected. It runs
/// at the last Release, on the thread that calls it, and must not throw.
template <class Default, class... Others> class ComObject : public Default, public Others... {
public:
    ComObject(const ComObject &) = delete;
    ComObject &operator=(const ComObject &) = delete;

    HRESULT QueryInterface(const IID &interfaceId, void **object) noexcept final {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        const auto offer = [&](auto *self, const IID &offered) {
            if (*object == nullptr && interfaceId == offered) {
                *object = self;
            }
        };
        // The address of IUnknown identifies the object, so it is always the same one.
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
    /// A new object has one reference, its creator's.
    ComObject() noexcept = default;
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_{1};
};

/// Creates an object. Throws what its constructor throws, and std::bad_alloc without memory.
template <class Object, class... Arguments>
[[nodiscard]] ComPointer<Object> makeComObject(Arguments &&...arguments) {
    return ComPointer<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace kvex
