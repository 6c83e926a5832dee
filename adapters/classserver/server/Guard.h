// Exceptions end where a component's function begins: they become results.
#pragma once

#include "platform/Component.h"

#include <utility>

namespace kvex {

/// The exception being handled as a failed result. Call inside a catch block only.
/// - An Error gives its number: the provider's own when negative, else 0x800A0000 + number, which
///   is how the platform passes run-time errors on; outOfMemory gives E_OUTOFMEMORY.
/// - A failed allocation gives E_OUTOFMEMORY, a refused permission E_ACCESSDENIED, any other
///   failure of the system E_FAIL.
/// - Everything else gives E_UNEXPECTED.
[[nodiscard]] HRESULT currentResult() noexcept;

/// What `body` returns, or the result of what it throws.
template <class Body> [[nodiscard]] HRESULT guarded(Body &&body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return currentResult();
    }
}

} // namespace kvex
