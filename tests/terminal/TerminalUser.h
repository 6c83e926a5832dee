// Does what a person does in a window of a terminal, by the bytes of keys and of the mouse. Reads
// what the person sees.
#pragma once

#include "adapters/terminal/TerminalWindow.h"
#include "tests/support/OnScreenUser.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

class TerminalPlay;

class TerminalUser final : public OnScreenUser {
public:
    /// An action that no person could do is a problem of the play, and does nothing else.
    TerminalUser(TerminalPlay &play, terminal::TerminalWindow &window)
        : play_(play), window_(window) {}

    void click(std::u16string_view control) override;
    void clickRow(std::u16string_view list, int row) override;
    void doubleClickRow(std::u16string_view list, int row) override;
    void doubleClickBesideRows(std::u16string_view list) override;
    void tickRow(std::u16string_view list, int row) override;
    void tryToClick(std::u16string_view control) override;
    void closeByFrame() override;

    void press(Key key) override;
    void type(std::u16string_view text) override;
    void pressAccessKey(char16_t key) override;
    void focusOn(std::u16string_view control) override;
    void clickAt(terminal::Point at, int times = 1);

    void pickDate(std::u16string_view picker, int year, int month, int day) override;
    void pickTime(std::u16string_view picker, int hour, int minute, int second) override;
    void tickPicker(std::u16string_view picker, bool ticked) override;

    [[nodiscard]] std::u16string focused() const override;
    [[nodiscard]] std::u16string description(std::u16string_view control) const override;
    [[nodiscard]] bool isOpen() const override { return window_.isOpen(); }
    [[nodiscard]] terminal::TerminalWindow &window() override { return window_; }
    [[nodiscard]] std::vector<std::u16string> tabOrder() const override;
    [[nodiscard]] bool isUsable(std::u16string_view control) const override;
    /// As the status line says it.
    [[nodiscard]] std::u16string waitsFor(std::u16string_view control) const override;

    /// The bytes that a terminal sends for the key.
    [[nodiscard]] static std::string bytesOf(Key key);

private:
    [[nodiscard]] std::optional<terminal::Rect> seen(std::u16string_view control);
    /// Where the row is on the screen, after scrolling there.
    [[nodiscard]] std::optional<terminal::Point> placeOfRow(std::u16string_view list, int row);
    void retype(std::u16string_view picker, std::u16string_view value);
    void complain(std::u16string_view problem);

    TerminalPlay &play_;
    terminal::TerminalWindow &window_;
};

} // namespace kvex::test
