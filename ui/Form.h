// What every window of the component is: a design, a load procedure, a modal showing.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/Window.h"
#include "platform/controls/WindowDesign.h"

#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace kvex {

/// One showing of one window. Made when it is to be shown and released once it is closed, so
/// that its load procedure runs on every opening.
class Form {
public:
    virtual ~Form() = default;

    /// Loads the window and shows it until it is closed. What leaves the load procedure passes to
    /// the caller, and the window is not shown.
    void Show() {
        Form_Load();
        window_->showModal();
    }

protected:
    /// Fails where the toolkit can show no window.
    explicit Form(const WindowDesign &design);
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    virtual void Form_Load() = 0;
    void Unload() { window_->close(); }

    [[nodiscard]] Window &window() { return *window_; }
    template <class Kind> [[nodiscard]] Kind &control(std::u16string_view name) {
        return window_->get<Kind>(name);
    }
    /// Runs a handler of the window when the button is pressed.
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
