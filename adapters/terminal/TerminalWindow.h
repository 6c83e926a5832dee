// A window on a terminal: its title, its controls and a line about its state.
#pragma once

#include "adapters/lightweight/LightWindow.h"
#include "adapters/terminal/BoxLayout.h"
#include "adapters/terminal/ControlView.h"
#include "adapters/terminal/Desktop.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvex::terminal {

/// A window fills the terminal. A box is as small as its content and stands in the middle.
enum class Shape { window, box };

class TerminalWindow final : public lightweight::LightWindow {
public:
    /// Called with each error that left a handler.
    using Observer = std::function<void(const Error &error)>;

    /// The desktop must outlive the window.
    TerminalWindow(Desktop &desktop, const WindowDesign &design, Shape shape, Observer observer);
    ~TerminalWindow() override;

    [[nodiscard]] lightweight::LightClipboard &clipboard() override { return desktop_.clipboard(); }
    [[nodiscard]] controls::ErrorObserver errorObserver() override { return observer_; }

    /// Whether nothing below the window is visible.
    [[nodiscard]] bool fillsTerminal() const { return shape_ == Shape::window; }
    /// Lays the window out for the grid and paints it over what is there. Only the active window
    /// shows its focus and its status.
    void paint(CellGrid &grid, bool isActive);
    /// Does what the user wants.
    void handle(const Input &input);

    /// The visible part of the control in the last picture; none if it was not visible.
    [[nodiscard]] std::optional<Rect> seenAt(std::u16string_view control) const;
    /// The rows that the control has in the window, in view or not; 0 if it is not shown.
    [[nodiscard]] int heightOf(std::u16string_view control) const;
    [[nodiscard]] Rect closeMark() const { return closeMark_; }
    [[nodiscard]] Economy economy() const { return arrangement_.economy; }

protected:
    void run() override;

private:
    using Key = lightweight::Key;

    [[nodiscard]] ControlView *viewOf(const lightweight::Element *element) const;
    [[nodiscard]] Rect outerRect(Size size) const;
    [[nodiscard]] Rect innerRect(const Rect &outer) const;
    void arrange(const Rect &room);
    void paintAround(Canvas &canvas, const Rect &outer);
    void paintStatus(CellGrid &grid) const;
    /// The element about which the status line speaks; null if there is none.
    [[nodiscard]] const lightweight::Element *explained() const;
    /// What the status line says in so many columns.
    [[nodiscard]] std::u16string statusLine(int columns) const;

    /// Null if the control is not shown.
    [[nodiscard]] const Placed *placed(std::u16string_view control) const;
    /// Where a placed control is on the screen, and the part of the screen that shows it.
    [[nodiscard]] Rect onScreen(const Placed &placed) const;
    [[nodiscard]] Rect visiblePart(const Placed &placed) const;
    void keepFocusInView();
    bool scrollPane(int rows);

    void take(const Typed &typed);
    void take(const Stroke &stroke);
    void take(const Pasted &pasted);
    void take(const MouseEvent &mouse);
    void click(const Placed &placed, Point at, bool twice);
    void useAccessKey(std::u16string_view cluster);

    Desktop &desktop_;
    Shape shape_;
    Observer observer_;
    std::map<const lightweight::Element *, std::unique_ptr<ControlView>> views_;
    BoxLayout layout_;
    Arrangement arrangement_;
    /// What the arrangement was made for: the room, and all that the controls' sizes follow from.
    Rect arrangedRoom_{};
    std::u16string arrangedSizes_;
    /// The mark that closes the window as its frame does; a terminal without a mouse has none.
    Rect closeMark_{};
    /// The first row of the pane's content in view.
    int paneTop_ = 0;
    /// The mouse may scroll the focus out of view, and the next key brings it back.
    bool followsFocus_ = true;
    /// After F2, the next character is an access key.
    bool awaitsAccessKey_ = false;
    /// The disabled control that the user tried to use; null if the last input was no such try.
    const lightweight::Element *tried_ = nullptr;
    bool isDone_ = false;
};

} // namespace kvex::terminal
