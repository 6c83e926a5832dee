// The version of the server's tables. A database says its own in the table SMS_SCHEMA.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::recordset {

/// The newest version that this program knows. host/suite/SchemaSteps.cpp says how older tables
/// get there.
inline constexpr std::int64_t knownSchemaVersion = 1;

/// Each upgrade adds a row with a higher VERSION; the largest counts.
inline constexpr std::u16string_view schemaTable = u"SMS_SCHEMA";
inline constexpr std::u16string_view versionColumn = u"VERSION";

/// Nothing when the database does not say it, or the user may not read it. Tables that other
/// programs made have no version. Fails with the provider's number when the database refuses.
[[nodiscard]] std::optional<std::int64_t> schemaVersion(Driver &driver);

/// Why this program only reads tables of this version, as a sentence; "" when it also writes them.
[[nodiscard]] std::u16string readOnlyReason(std::optional<std::int64_t> version);

} // namespace kvex::recordset
