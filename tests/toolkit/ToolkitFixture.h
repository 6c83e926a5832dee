// What the conformance suite needs of a toolkit: the toolkit itself, and hands that do what a user
// does in an open window.
#pragma once

#include "adapters/controls/Keys.h"
#include "platform/controls/Toolkit.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

using controls::Key;

/// A user of the active window. When an action returns, its effects have happened. Controls are
/// named, and rows count from 1. The suite does only what a user can do. The exceptions are named
/// `tryTo...` and must have no effect.
class Hands {
public:
    virtual ~Hands() = default;

    virtual void click(std::u16string_view control) = 0;
    virtual void clickRow(std::u16string_view list, int row) = 0;
    virtual void doubleClickRow(std::u16string_view list, int row) = 0;
    /// Double-clicks the area of the list below its rows.
    virtual void doubleClickBesideRows(std::u16string_view list) = 0;
    /// Clicks the check box of the row.
    virtual void tickRow(std::u16string_view list, int row) = 0;
    /// Clicks a disabled control.
    virtual void tryToClick(std::u16string_view control) = 0;
    virtual void closeByFrame() = 0;

    virtual void press(Key key) = 0;
    virtual void type(std::u16string_view text) = 0;
    /// Presses the key with Alt.
    virtual void pressAccessKey(char16_t key) = 0;

    /// Types the date or time into the picker in one step.
    virtual void pickDate(std::u16string_view picker, int year, int month, int day) = 0;
    virtual void pickTime(std::u16string_view picker, int hour, int minute, int second) = 0;
    /// Ticks or unticks the picker's own check box.
    virtual void tickPicker(std::u16string_view picker, bool ticked) = 0;

    /// The name of the control that has the focus, "" for none.
    [[nodiscard]] virtual std::u16string focused() const = 0;
    /// What assistive technology reads out about the control, besides its name.
    [[nodiscard]] virtual std::u16string description(std::u16string_view control) const = 0;
    /// Whether the window of these hands is shown.
    [[nodiscard]] virtual bool isOpen() const = 0;
};

/// A rule of the contract that a toolkit does not keep.
struct Deviation {
    /// As in "TextBoxRaisesNoChangeForTheSameText".
    std::string test;
    std::string reason;
};

class ToolkitFixture {
public:
    struct MessageBox {
        std::u16string title;
        std::u16string text;
    };
    using Script = std::function<void(Hands &)>;

    virtual ~ToolkitFixture() = default;

    [[nodiscard]] virtual Toolkit &toolkit() = 0;
    /// Calls showModal, runs `script` in the window as soon as it is shown, and returns when
    /// showModal does. If the script leaves the window open, the window is closed by its frame. A
    /// handler may call this while another script runs.
    virtual void show(Window &window, Script script) = 0;
    /// Answers the next message box with the button of this result, or with Esc.
    virtual void answerNext(std::int32_t result) = 0;
    virtual void answerNextByEscape() = 0;
    /// The message boxes shown so far.
    [[nodiscard]] virtual std::vector<MessageBox> messageBoxes() const = 0;
    /// The clipboard's text, as another program sets and reads it.
    virtual void setClipboardText(const std::u16string &text) = 0;
    [[nodiscard]] virtual std::u16string clipboardText() const = 0;

    [[nodiscard]] virtual std::vector<Deviation> deviations() const { return {}; }
    /// Problems that no test caused on purpose, "" for none. The suite reads them at the end of
    /// each test.
    [[nodiscard]] virtual std::string complaints() const { return {}; }
};

using MakeToolkitFixture = std::unique_ptr<ToolkitFixture> (*)();

} // namespace kvex::test
