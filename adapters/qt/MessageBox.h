// The message box.
#pragma once

#include <cstdint>
#include <string>

namespace kvex::qt {

/// As Toolkit::showMessageBox, given an application.
std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                            std::int32_t style);

} // namespace kvex::qt
