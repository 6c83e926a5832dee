// Turns the reports of ODBC and its drivers into the system's errors.
#pragma once

#include "adapters/recordset/Driver.h"
#include "platform/Error.h"

#include <cstdint>
#include <string>

namespace kvex::odbc {

/// The numbers of the errors; they are those of the platform's own ODBC provider. The errors'
/// source is "ODBC".
namespace refusal {
/// The connection cannot be made, or it broke.
inline constexpr std::int32_t noConnection = kvex::noConnection;
/// Any failure without a number of its own.
inline constexpr std::int32_t failed = -2147217887;
inline constexpr std::int32_t wrongUser = -2147217843;
inline constexpr std::int32_t forbidden = -2147217911;
inline constexpr std::int32_t noTable = -2147217865;
inline constexpr std::int32_t badStatement = -2147217900;
inline constexpr std::int32_t constraint = -2147217873;
inline constexpr std::int32_t tooLong = -2147217833;
inline constexpr std::int32_t badValue = -2147217913;
/// Another program holds a lock, or the server did not answer in time.
inline constexpr std::int32_t timeout = -2147217871;
} // namespace refusal

/// One report from a driver or from the driver manager.
struct Diagnostic {
    std::u16string state;
    std::int32_t native = 0;
    std::u16string text;
};

/// The first report on a handle (SQL_HANDLE_...).
[[nodiscard]] Diagnostic diagnosticOf(std::int16_t handleType, void *handle);
/// The error for the report; its description says what happened, with the driver's own words. The
/// number is outOfMemory when memory ran out.
[[nodiscard]] Error errorOf(const Diagnostic &diagnostic);
[[nodiscard]] Error errorWith(std::int32_t number, HelpContext context, std::u16string description);

} // namespace kvex::odbc
