// What every window of the component is: a design, a load procedure, a modal showing.
#pragma once

#include "platform/controls/Window.h"
#include "platform/controls/WindowDesign.h"

#include <memory>

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

private:
    std::unique_ptr<Window> window_;
};

/// The share of its list that the column of texts takes.
inline constexpr double textColumnWidth = 0.95;
inline constexpr double hiddenColumnWidth = 0;

} // namespace kvex
