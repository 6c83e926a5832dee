// What a person can do and see in a window of the headless toolkit. An action that no person could
// take changes nothing; the toolkit records it as a problem.
#pragma once

#include "adapters/controls/Keys.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
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
    // The mouse.
    void click(std::u16string_view control);
    void clickRow(std::u16string_view list, int row);
    /// Clicks the area without rows, which deselects all rows.
    void clickBesideRows(std::u16string_view list);
    void doubleClickRow(std::u16string_view list, int row);
    /// Double-clicks the area without rows.
    void doubleClickBesideRows(std::u16string_view list);
    /// Clicks the row's check box, which ticks or unticks it.
    void tickRow(std::u16string_view list, int row);
    void closeByFrame();

    // The keyboard. The keys go to the control that has the focus.
    void press(Key key);
    /// Types the characters one by one.
    void type(std::u16string_view text);
    /// Presses Alt and the key, for the control or the label's buddy with this access key.
    void pressAccessKey(char16_t key);
    /// Gives the control the focus, as a click into it would.
    void focusOn(std::u16string_view control);

    // Pickers. The values are typed. Unticking clears the value; ticking brings the last one back.
    void pickDate(std::u16string_view picker, int year, int month, int day);
    void pickTime(std::u16string_view picker, int hour, int minute, int second);
    void tickPicker(std::u16string_view picker, bool ticked);

    // What the user sees.
    [[nodiscard]] Window &window();
    template <class Kind> [[nodiscard]] Kind &get(std::u16string_view name) {
        return window().get<Kind>(name);
    }
    [[nodiscard]] bool isOpen() const;
    /// The name of the control that has the focus; "" if none has it.
    [[nodiscard]] std::u16string focused() const;
    /// What the visible labels say about the control, as assistive technology reads it out.
    [[nodiscard]] std::u16string description(std::u16string_view control) const;
    /// The row texts of a list, from the first to the last.
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view list);
    /// The names of the controls that Tab reaches, in tab order.
    [[nodiscard]] std::vector<std::u16string> tabOrder() const;

private:
    friend class HeadlessToolkit;
    explicit User(HeadlessWindow &window) : window_(window) {}

    void complain(std::u16string_view text) const;
    /// Whether the user can do anything in the window. If not, it records a problem.
    [[nodiscard]] bool isBeforeWindow() const;
    /// The control of this name and kind. If the user cannot use it, it records a problem and
    /// returns null.
    template <class Kind> [[nodiscard]] Kind *usable(std::u16string_view name) const;
    template <class Action>
    void onRow(std::u16string_view list, int row, const Action &action) const;
    template <class Action> void onPicker(std::u16string_view picker, const Action &action) const;

    HeadlessWindow &window_;
};

} // namespace kvex::headless
