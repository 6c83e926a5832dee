// The number of the error that a call fails with.
#pragma once

#include "platform/Error.h"

#include <cstdint>

namespace kvex::test {

/// 0 for a call that does not fail.
template <class Call> [[nodiscard]] std::int32_t errorNumber(Call call) {
    try {
        call();
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

} // namespace kvex::test
