// The base class of component objects, their class factory, and the count that keeps their module
// loaded.
#pragma once

#include "kvex/ComPointer.h"

#include <atomic>
#include <utility>

namespace kvex {

/// A module must stay loaded while it has objects or locks.
namespace module_count {

void addObject() noexcept;
void removeObject() noexcept;

void addLock() noexcept;
/// False when there is no lock to remove.
[[nodiscard]] bool removeLock() noexcept;

[[nodiscard]] bool isInUse() noexcept;

} // namespace module_count

/// Counts its references, counts itself in the module, and finds its interfaces. Derive a class
/// from it with the object's interfaces, the default one first. Implement their functions and
/// create the objects with makeComObject. Make the destructor private or protected; it runs at the
/// last Release and must not throw.
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
    ComObject() noexcept { module_count::addObject(); }
    virtual ~ComObject() { module_count::removeObject(); }

private:
    std::atomic<ULONG> references_{1};
};

/// Creates an object. Throws what its constructor throws.
template <class Object, class... Arguments>
[[nodiscard]] ComPointer<Object> makeComObject(Arguments &&...arguments) {
    return ComPointer<Object>::adopt(new Object(std::forward<Arguments>(arguments)...));
}

/// Creates an object of one class, with one reference. Throws what its constructor throws.
using Creator = ComPointer<IUnknown> (*)();

/// The class object of any class. It keeps its server loaded while it lives.
class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(Creator creator) noexcept : creator_(creator) {}

    /// When the creator throws, fails with currentResult().
    HRESULT CreateInstance(IUnknown *outer, const IID &interfaceId, void **object) noexcept final;
    /// Fails with E_UNEXPECTED when there is no lock to remove.
    HRESULT LockServer(bool lock) noexcept final;

private:
    ~ClassFactory() final = default;

    Creator creator_;
};

} // namespace kvex
