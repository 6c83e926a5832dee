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

/// True for a cluster that is one visible ASCII character: every terminal shows it as it is. Most
/// clusters are, and need no look at Unicode's tables.
[[nodiscard]] constexpr bool isPlainAt(std::u16string_view text, std::size_t at) {
    return text[at] >= u' ' && text[at] <= u'~' && (at + 1 == text.size() || text[at + 1] < 0x80);
}

/// The columns of all clusters of `line`.
[[nodiscard]] int shownColumns(std::u16string_view line, Characters characters);

} // namespace kvex::terminal
