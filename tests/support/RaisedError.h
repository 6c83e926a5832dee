// The Error that a call raises.
#pragma once

#include "platform/Error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace kvex::test {

/// None when the call raises none.
template <class Call> [[nodiscard]] std::optional<Error> raisedBy(Call &&call) {
    try {
        static_cast<void>(std::forward<Call>(call)());
    } catch (const Error &error) {
        return error;
    }
    return std::nullopt;
}

/// 0 when the call raises none.
template <class Call> [[nodiscard]] std::int32_t errorNumber(Call &&call) {
    const std::optional<Error> error = raisedBy(std::forward<Call>(call));
    return error ? error->number() : 0;
}

/// The call raises the Error with this number and this description.
template <class Call>
void expectError(std::int32_t number, const std::u16string &description, Call &&call) {
    const std::optional<Error> error = raisedBy(std::forward<Call>(call));
    ASSERT_TRUE(error) << "it raised no error";
    EXPECT_EQ(error->number(), number);
    EXPECT_EQ(error->description(), description);
}

} // namespace kvex::test
