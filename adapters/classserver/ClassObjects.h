// The class objects that this process registered itself.
#pragma once

#include "platform/ComPointer.h"

#include <map>
#include <mutex>

namespace kvex::classserver {

/// For any number of threads.
class ClassObjects {
public:
    /// The registration, never 0.
    [[nodiscard]] std::uint32_t add(const CLSID &classId, IUnknown &classObject);
    /// False for an unknown registration.
    [[nodiscard]] bool remove(std::uint32_t registration) noexcept;
    /// The one registered last; empty when there is none.
    [[nodiscard]] ComPointer<IUnknown> find(const CLSID &classId) const noexcept;

private:
    struct Entry {
        CLSID classId;
        ComPointer<IUnknown> object;
    };

    mutable std::mutex mutex_;
    std::uint32_t last_ = 0;
    std::map<std::uint32_t, Entry> entries_;
};

} // namespace kvex::classserver
