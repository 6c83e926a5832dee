// What a person can do in a window of the headless toolkit, and see there. An action that no
// person could take is recorded as the toolkit's problem and changes nothing.
#pragma once

#include "adapters/controls/Key.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Window.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::headless {

class HeadlessWindow;

using controls::Key;

class User {
public:
    /// Mouse.
    void click(std::u16string_view control);
    void clickRow(std::u16string_view list, int row);
    /// Where the list has no row: none is selected then.
    void clickBesideRows(std::u16string_view list);
    void doubleClickRow(std::u16string_view list, int row);
    /// On the area of the list that no row covers.
    void doubleClickBesideRows(std::u16string_view list);
    /// Clicks the row's check box, which toggles it.
    void tickRow(std::u16string_view list, int row);
    void closeByFrame();

    /// Keyboard, to whatever has the focus.
    void press(Key key);
    /// Each character as a key.
    void type(std::u16string_view text);
    /// Alt and the key: the control (or the label's buddy) that has it as its access key.
    void pressAccessKey(char16_t key);
    /// Gives the focus as a click into the control would.
    void focusOn(std::u16string_view control);

    /// Pickers: as if typed; unticking leaves no value, ticking brings the last one back.
    void pickDate(std::u16string_view picker, int year, int month, int day);
    void pickTime(std::u16string_view picker, int hour, int minute, int second);
    void tickPicker(std::u16string_view picker, bool ticked);

    /// What is seen.
    [[nodiscard]] Window &window();
    template <class Kind> [[nodiscard]] Kind &get(std::u16string_view name) {
        return window().get<Kind>(name);
    }
    [[nodiscard]] bool isOpen() const;
    /// The name of the control that has the focus, "" for none.
    [[nodiscard]] std::u16string focused() const;
    /// The texts of a list's rows, from the first to the last.
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view list);
    /// The controls that Tab reaches, in that order, from the first.
    [[nodiscard]] std::vector<std::u16string> tabOrder() const;

private:
    friend class HeadlessToolkit;
    explicit User(HeadlessWindow &window) : window_(window) {}

    void complain(std::u16string_view text) const;
    /// Whether the user can do anything in the window; else that is a problem.
    [[nodiscard]] bool isBeforeWindow() const;
    /// The control of this name and kind, null and a problem when the user cannot use it.
    template <class Kind> [[nodiscard]] Kind *usable(std::u16string_view name) const;
    template <class Action>
    void onRow(std::u16string_view list, int row, const Action &action) const;
    template <class Action> void onPicker(std::u16string_view picker, const Action &action) const;

    HeadlessWindow &window_;
};

} // namespace kvex::headless
