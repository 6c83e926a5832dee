// Writes rules as an export document, which docs/format.md describes.
#pragma once

#include "host/transfer/RuleTable.h"

#include <span>
#include <string>
#include <string_view>

namespace kvex::host {

/// With it every export begins.
inline constexpr std::string_view exportStart = "{\n  \"format\": \"kvex-rules\",";

/// The document of these rules, in UTF-8 with a newline at its end. It names those users and
/// accounts that the rules refer to. The same rules, users and accounts give the same bytes. Ids
/// and priorities of rules do not matter. Fails as RuleStrings does.
[[nodiscard]] std::string exportDocument(std::span<const RuleRow> rules,
                                         std::span<const NamedRow> users,
                                         std::span<const AccountRow> accounts,
                                         const RuleStrings &strings);

} // namespace kvex::host
