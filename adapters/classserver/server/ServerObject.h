// The base class of the objects of a loadable server, their class factory, and the count that keeps
// the server loaded.
#pragma once

#include "kvex/ComObject.h"

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

/// A component object that counts itself in its module.
template <class... Interfaces> class ServerObject : public ComObject<Interfaces...> {
protected:
    ServerObject() noexcept { module_count::addObject(); }
    ~ServerObject() override { module_count::removeObject(); }
};

/// Creates an object of one class, with one reference. Throws what its constructor throws.
using Creator = ComPointer<IUnknown> (*)();

/// The class object of any class. It keeps its server loaded while it lives.
class ClassFactory final : public ServerObject<IClassFactory> {
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
