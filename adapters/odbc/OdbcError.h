// Turns what ODBC and its drivers report into the system's errors: the one place that does.
#pragma once

#include "adapters/recordset/Driver.h"
#include "platform/Error.h"

#include <cstdint>
#include <string>

namespace kvex::odbc {

/// The numbers that the platform's own provider for ODBC gives. Their source is "ODBC".
namespace refusal {
/// There is none, or it broke.
inline constexpr std::int32_t noConnection = recordset::connectionLost;
/// Of no other kind.
inline constexpr std::int32_t failed = -2147217887;
inline constexpr std::int32_t wrongUser = -2147217843;
inline constexpr std::int32_t forbidden = -2147217911;
inline constexpr std::int32_t noTable = -2147217865;
inline constexpr std::int32_t badStatement = -2147217900;
inline constexpr std::int32_t constraint = -2147217873;
inline constexpr std::int32_t tooLong = -2147217833;
inline constexpr std::int32_t badValue = -2147217913;
/// Locked by another program, or no answer in time.
inline constexpr std::int32_t timeout = -2147217871;
} // namespace refusal

/// One report of a driver or of the driver manager.
struct Diagnostic {
    std::u16string state;
    std::int32_t native = 0;
    std::u16string text;
};

/// The first report on a handle (SQL_HANDLE_...).
[[nodiscard]] Diagnostic diagnosticOf(std::int16_t handleType, void *handle);
/// A sentence that says what happened and what to do. Memory that ran out is outOfMemory.
[[nodiscard]] Error errorOf(const Diagnostic &diagnostic);
[[nodiscard]] Error errorWith(std::int32_t number, std::u16string description);

} // namespace kvex::odbc
