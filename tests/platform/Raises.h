// The number of the Error that a call raises.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <optional>
#include <utility>

/// None when it raises none.
template <class Call> [[nodiscard]] std::optional<std::int32_t> raisedBy(Call &&call) {
    try {
        static_cast<void>(std::forward<Call>(call)());
    } catch (const kvex::Error &error) {
        return error.number();
    }
    return std::nullopt;
}
