// No exception leaves a component's function: it becomes a result.
#pragma once

#include "kvex/Component.h"

#include <utility>

namespace kvex {

/// Turns the exception that is being handled into a failed result. Call it only in a catch block.
/// - An Error gives its number. A provider's negative number stays as it is. Any other becomes
///   0x800A0000 + number, the component model's form for run-time errors. outOfMemory gives
///   E_OUTOFMEMORY; 0 and numbers above 0xFFFF give E_FAIL.
/// - A failed allocation gives E_OUTOFMEMORY.
/// - A system error gives E_ACCESSDENIED when permission is missing, else E_FAIL.
/// - Everything else gives E_UNEXPECTED.
[[nodiscard]] HRESULT currentResult() noexcept;

/// Returns what `body` returns, or the result of what it throws.
template <class Body> [[nodiscard]] HRESULT guarded(Body &&body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return currentResult();
    }
}

} // namespace kvex
