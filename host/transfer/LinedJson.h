// A JSON document whose values know their lines.
#pragma once

#include "host/transfer/Problem.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct LinedJson {
    /// `other` is a number that is no integer of 64 bits.
    enum class Kind { null, boolean, integer, other, text, array, object };

    Kind kind = Kind::null;
    /// The line where the value begins, from 1. The value of a member has the line of its name.
    std::size_t line = 1;
    bool flag = false;
    std::int64_t number = 0;
    /// In UTF-8.
    std::string text = {};
    /// The elements of an array, or the members of an object.
    std::vector<LinedJson> values = {};
    /// The names of the members, in their order.
    std::vector<std::string> names = {};

    /// Null when there is no such member.
    [[nodiscard]] const LinedJson *member(std::string_view name) const;
};

/// Reads JSON in UTF-8. Adds a problem and returns nothing when the text is no JSON. It does the
/// same when an object has a name twice, or when values are nested in more than sixteen others.
[[nodiscard]] std::optional<LinedJson> readLinedJson(std::string_view text, Problems &problems);

} // namespace kvex::host
