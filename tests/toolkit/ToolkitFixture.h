// What a toolkit brings to the conformance suite: itself, and hands that do to an open window what
// a user does.
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

/// A user before the active window. What an action sets off has happened when it returns. Controls
/// go by their names, rows count from 1. The suite asks for nothing that a user cannot do, except
/// where `tryTo...` says so: that must do nothing.
class Hands {
public:
    virtual ~Hands() = default;

    virtual void click(std::u16string_view control) = 0;
    virtual void clickRow(std::u16string_view list, int row) = 0;
    virtual void doubleClickRow(std::u16string_view list, int row) = 0;
    /// On the area of the list that no row covers.
    virtual void doubleClickBesideRows(std::u16string_view list) = 0;
    /// Clicks the check box of the row.
    virtual void tickRow(std::u16string_view list, int row) = 0;
    /// A click on a control that is disabled.
    virtual void tryToClick(std::u16string_view control) = 0;
    virtual void closeByFrame() = 0;

    virtual void press(Key key) = 0;
    virtual void type(std::u16string_view text) = 0;
    /// Alt and the key.
    virtual void pressAccessKey(char16_t key) = 0;

    /// As typed into the picker, in one step.
    virtual void pickDate(std::u16string_view picker, int year, int month, int day) = 0;
    virtual void pickTime(std::u16string_view picker, int hour, int minute, int second) = 0;
    /// Ticks or unticks the picker's own check box.
    virtual void tickPicker(std::u16string_view picker, bool ticked) = 0;

    /// The name of the control that has the focus, "" for none.
    [[nodiscard]] virtual std::u16string focused() const = 0;
    /// Whether the window that these hands are for is shown.
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
    /// Calls showModal, plays `script` in the window as soon as it is shown, and returns when
    /// showModal does. When the script ends with the window open, it is closed by its frame. May
    /// be called by a handler, while another script plays.
    virtual void show(Window &window, Script script) = 0;
    /// How the user answers the next message box: by the button of this result, or by Esc.
    virtual void answerNext(std::int32_t result) = 0;
    virtual void answerNextByEscape() = 0;
    /// The message boxes shown so far.
    [[nodiscard]] virtual std::vector<MessageBox> messageBoxes() const = 0;
    /// The clipboard's text as another program would set it and see it.
    virtual void setClipboardText(const std::u16string &text) = 0;
    [[nodiscard]] virtual std::u16string clipboardText() const = 0;

    [[nodiscard]] virtual std::vector<Deviation> deviations() const { return {}; }
    /// What went wrong that no test asked for, "" for nothing: asked at the end of each test.
    [[nodiscard]] virtual std::string complaints() const { return {}; }
};

using MakeToolkitFixture = std::unique_ptr<ToolkitFixture> (*)();

} // namespace kvex::test
