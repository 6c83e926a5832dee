// The class object that every class of a server shares the code of.
#pragma once

#include "adapters/classserver/server/ComObject.h"

namespace kvex {

/// Makes an object of a class, with one reference. Raises what its constructor raises.
using Creator = ComPointer<IUnknown> (*)();

/// While it is alive its server stays loaded.
class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(Creator creator) noexcept : creator_(creator) {}

    /// What the creator raises comes back as currentResult() says.
    HRESULT CreateInstance(IUnknown *outer, const IID &interfaceId, void **object) noexcept final;
    /// E_UNEXPECTED for an unlock when nothing is locked.
    HRESULT LockServer(bool lock) noexcept final;

private:
    ~ClassFactory() final = default;

    Creator creator_;
};

} // namespace kvex
