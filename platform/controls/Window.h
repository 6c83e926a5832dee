// A window with its controls, shown modally.
#pragma once

#include "platform/Error.h"
#include "platform/controls/Control.h"

#include <string>
#include <string_view>

namespace kvex {

class Window {
public:
    virtual ~Window() = default;

    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
    /// Shows the window over whatever window is active and returns once it is closed: by close(),
    /// or by its frame, which runs no handler. A window closed before it was shown is not shown.
    /// Fails with invalidCall when it is shown already or was closed.
    virtual void showModal() = 0;
    /// Ends showModal after the handler that called it.
    virtual void close() = 0;

    /// The control of this name and kind; fails with controlNotFound for any other.
    template <class Kind> [[nodiscard]] Kind &get(std::u16string_view name) {
        if (auto *found = dynamic_cast<Kind *>(find(name))) {
            return *found;
        }
        throw Error(error_number::controlNotFound);
    }

protected:
    Window() = default;
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    /// The control of this name, null when there is none.
    [[nodiscard]] virtual Control *find(std::u16string_view name) = 0;
};

} // namespace kvex
