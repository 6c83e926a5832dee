// A window's design as a table: one row a control, in the design's order.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <string>
#include <vector>

namespace kvex::test {

/// What the control is, as one line: its kind, its name, its caption in quotes, and behind them
/// whatever is not as in most controls: "button cmdAdd "&Add" disabled waits="Type a word first"
/// default". Its least size is left out.
[[nodiscard]] std::string rowOf(const ControlDesign &control);

/// The design has this name and this title, and its controls are these rows, in this order.
void expectDesign(const WindowDesign &design, const std::string &name, const std::string &title,
                  const std::vector<std::string> &rows);

} // namespace kvex::test
