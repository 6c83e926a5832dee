// The designs of the boxes that lie over a window.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <cstdint>
#include <string>

namespace kvex::terminal {

inline constexpr const char16_t *okButton = u"cmdOK";
inline constexpr const char16_t *yesButton = u"cmdYes";
inline constexpr const char16_t *noButton = u"cmdNo";
inline constexpr const char16_t *messageLabel = u"lblText";

/// `text` above OK, which Esc presses too; above Yes and No for the style of a question. Esc means
/// No.
[[nodiscard]] WindowDesign messageBoxDesign(const std::u16string &title, const std::u16string &text,
                                            std::int32_t style);

} // namespace kvex::terminal
