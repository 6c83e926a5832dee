// A user of a real toolkit's window. Each such toolkit has one, and tests of the windows run with
// all of them.
#pragma once

#include "platform/controls/ListView.h"
#include "platform/controls/Window.h"
#include "tests/toolkit/ToolkitFixture.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

class OnScreenUser : public Hands {
public:
    /// Gives the focus to the control, as a click into it does.
    virtual void focusOn(std::u16string_view control) = 0;

    [[nodiscard]] virtual Window &window() = 0;
    template <class Kind> [[nodiscard]] Kind &get(std::u16string_view name) {
        return window().get<Kind>(name);
    }
    /// The texts of a list's rows, from the first to the last.
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view list) {
        const auto &view = get<ListView>(list);
        std::vector<std::u16string> texts;
        for (int row = 1; row <= view.rowCount(); ++row) {
            texts.push_back(view.text(row));
        }
        return texts;
    }
    /// The controls that Tab reaches, in this order, beginning with the first.
    [[nodiscard]] virtual std::vector<std::u16string> tabOrder() const = 0;
    /// Whether the user can use the control, which is shown.
    [[nodiscard]] virtual bool isUsable(std::u16string_view control) const = 0;
    /// What the user learns about what a disabled control waits for; "" if it is enabled.
    [[nodiscard]] virtual std::u16string waitsFor(std::u16string_view control) const = 0;
};

} // namespace kvex::test
