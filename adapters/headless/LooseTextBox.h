// A rich text box outside any window.
#pragma once

#include "platform/controls/RichTextBox.h"

#include <memory>

namespace kvex::headless {

/// Can be filled and read; nothing else happens to it.
[[nodiscard]] std::unique_ptr<RichTextBox> createRichTextBox();

} // namespace kvex::headless
