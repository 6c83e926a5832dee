// The functions of IRuleStrings, which kvex/RuleStrings.h describes.
#pragma once

#include "kvex/RuleStrings.h"

namespace kvex::rule_strings {

HRESULT read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept;
HRESULT write(const RuleField *fields, ULONG count, BSTR *queryParam, BSTR *actionParam) noexcept;
HRESULT check(BSTR name, VARIANT_BOOL nameIsTaken, const RuleField *fields, ULONG count,
              BSTR *message) noexcept;
HRESULT getNameKeys(BSTR name, BSTR *typed, BSTR *stored) noexcept;

} // namespace kvex::rule_strings
