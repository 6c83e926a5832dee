// A modal window with its controls.
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
    /// Shows the window over the active window. Returns when close() or the user has closed it.
    /// Closing it by its frame runs no handler. A window that was closed before is not shown. Fails
    /// with invalidCall if showModal was called before.
    virtual void showModal() = 0;
    /// Lets showModal return after the current handler.
    virtual void close() = 0;

    /// Fails with controlNotFound if no control has this name and kind.
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

    /// Null if no control has this name.
    [[nodiscard]] virtual Control *find(std::u16string_view name) = 0;
};

} // namespace kvex
