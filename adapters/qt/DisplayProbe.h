// Whether windows can be shown: asked beforehand, because Qt ends the process where they cannot.
#pragma once

#include <optional>
#include <string>

namespace kvex::qt {

/// The platform plug-in, with its parameters, by which Qt can show windows now: of those that
/// QT_QPA_PLATFORM names, else of those for desktops. Nothing where none can.
[[nodiscard]] std::optional<std::string> usablePlatform();

} // namespace kvex::qt
