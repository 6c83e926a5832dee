// What a terminal shows for a text.
#pragma once

#include <string>
#include <string_view>

namespace kvex::terminal {

/// The characters that the user's locale can show.
enum class Characters { ascii, unicode };

struct ShownCluster {
    /// Empty for a mark that has no form of its own, such as one of the direction of writing.
    std::u16string text;
    int columns = 0;
    /// The text is ASCII: each unit is a cluster of its own and takes a column.
    bool isAscii = false;
    friend bool operator==(const ShownCluster &, const ShownCluster &) = default;
};

/// The cluster as it appears. Control characters, lone surrogates and marks that deceive become
/// escapes, "\u{HEX}". With Characters::ascii so does all that is not ASCII. An accent without a
/// letter stands on a no-break space.
[[nodiscard]] ShownCluster shownCluster(std::u16string_view cluster, Characters characters);

/// The columns of all clusters of `line`.
[[nodiscard]] int shownColumns(std::u16string_view line, Characters characters);

} // namespace kvex::terminal
