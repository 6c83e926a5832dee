// What the layout of a window must know of a control.
#pragma once

namespace kvex::terminal {

/// What a layout gives up so that a window fits its terminal. Each step includes those before it.
enum class Economy { none, noGaps, noListFrames, noFrames };

/// How many columns or rows something takes.
struct Extent {
    int least = 0;
    int natural = 0;
};

class Placeable {
public:
    virtual ~Placeable() = default;

    /// A control that is not shown takes no room.
    [[nodiscard]] virtual bool isShown() const = 0;
    [[nodiscard]] virtual Extent columns() const = 0;
    /// The rows at this width.
    [[nodiscard]] virtual Extent rows(int columns, Economy economy) const = 0;
    /// Whether more columns or rows than the natural ones serve the user.
    [[nodiscard]] virtual bool growsAcross() const { return false; }
    [[nodiscard]] virtual bool growsDown() const { return false; }
    /// Whether a blank row before it shows that something new begins.
    [[nodiscard]] virtual bool startsSection() const { return false; }

protected:
    Placeable() = default;
    Placeable(const Placeable &) = delete;
    Placeable &operator=(const Placeable &) = delete;
};

} // namespace kvex::terminal
