// The base of every window of the component: a design, a load procedure and a modal showing.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/Window.h"
#include "platform/controls/WindowDesign.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace kvex {

/// Shows the sentence in the label, or hides the label for "". It also hides it when the sentence
/// cannot be made: a hint that fails is no error of the procedure that shows it.
void showHint(Label &hint, const std::function<std::u16string()> &sentence);

/// One showing of a window. Make an object for each showing, so that the load procedure runs each
/// time the window opens.
class Form {
public:
    virtual ~Form() = default;

    /// Loads the window and shows it until it is closed. An error that leaves the load procedure
    /// passes to the caller, and the window is not shown.
    void Show() {
        Form_Load();
        window_->showModal();
    }

protected:
    /// Fails when the toolkit cannot show windows.
    explicit Form(const WindowDesign &design);
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    virtual void Form_Load() = 0;
    void Unload() { window_->close(); }

    [[nodiscard]] Window &window() { return *window_; }
    template <class Kind> [[nodiscard]] Kind &control(std::u16string_view name) {
        return window_->get<Kind>(name);
    }
    /// Runs `handler` of this window when the user presses the button.
    template <class Self> void onClick(std::u16string_view button, void (Self::*handler)()) {
        auto *self = static_cast<Self *>(this);
        control<CommandButton>(button).onClick = [self, handler] { (self->*handler)(); };
    }
    [[nodiscard]] std::vector<CommandButton *>
    buttons(std::initializer_list<std::u16string_view> names);

private:
    std::unique_ptr<Window> window_;
};

} // namespace kvex
