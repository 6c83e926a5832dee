// What one cell of a screen shows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex::terminal {

/// One cluster, or nothing. It is a number, so that a program compares screens quickly.
///
/// The number of a cluster of several characters holds as long as the process. A process has one
/// list of them: it shows some thousands at most. Any thread may use it.
class Cluster {
public:
    /// Nothing.
    constexpr Cluster() = default;
    constexpr explicit Cluster(char16_t unit) : number_(unit) {}
    explicit Cluster(std::u16string_view text);

    [[nodiscard]] std::u16string text() const;
    void appendTo(std::string &utf8) const;
    [[nodiscard]] constexpr bool isNothing() const { return number_ == 0; }
    [[nodiscard]] constexpr bool isAscii() const { return number_ > 0 && number_ < 0x80; }
    /// More than one UTF-16 unit.
    [[nodiscard]] constexpr bool isLong() const { return number_ > 0xFFFF; }
    friend constexpr bool operator==(Cluster, Cluster) = default;

private:
    std::uint32_t number_ = 0;
};

} // namespace kvex::terminal
