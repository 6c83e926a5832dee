// Offers an object of the host to the component: its utility object or its address book.
#pragma once

#include "kvex/ComObject.h"

#include <new>

namespace kvex {

/// While it lives, every creation of the class in this process gives a reference to one object.
/// When a class is served more than once, the last one counts. Any thread may create and destroy
/// it.
class ServedObject {
public:
    /// Keeps a reference to `object`. Throws std::bad_alloc without memory.
    ServedObject(const CLSID &classId, IUnknown &object) {
        const auto factory = makeComObject<Factory>(object);
        if (FAILED(CoRegisterClassObject(classId, factory.get(), &registration_))) {
            throw std::bad_alloc();
        }
    }
    /// References that were given out stay valid.
    ~ServedObject() { CoRevokeClassObject(registration_); }
    ServedObject(const ServedObject &) = delete;
    ServedObject &operator=(const ServedObject &) = delete;

private:
    class Factory final : public ComObject<IClassFactory> {
    public:
        explicit Factory(IUnknown &object) noexcept : object_(&object) {}
        HRESULT CreateInstance(IUnknown *outer, const IID &interfaceId,
                               void **object) noexcept final {
            if (object == nullptr) {
                return E_POINTER;
            }
            *object = nullptr;
            return outer == nullptr ? object_->QueryInterface(interfaceId, object)
                                    : CLASS_E_NOAGGREGATION;
        }
        HRESULT LockServer(bool /*lock*/) noexcept final { return S_OK; }

    private:
        ~Factory() final = default;

        ComPointer<IUnknown> object_;
    };

    std::uint32_t registration_ = 0;
};

} // namespace kvex
