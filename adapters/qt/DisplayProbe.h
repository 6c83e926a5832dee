// Whether windows can be shown: asked beforehand, because Qt ends the process where they cannot.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace kvex::qt {

struct UsablePlatform {
    /// The platform plug-in, with its parameters.
    std::string name;
    /// To the display server, where there is one. To be held until Qt has its own: a server may
    /// reset itself when its only client leaves, and then refuse the next for a moment.
    std::shared_ptr<void> connection;
};

/// By what Qt can show windows now: of what QT_QPA_PLATFORM names, else of what is for desktops.
/// Nothing where none can.
[[nodiscard]] std::optional<UsablePlatform> usablePlatform();

} // namespace kvex::qt
