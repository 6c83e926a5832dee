// A window's design as a table with one row for each control, in the design's order.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <string>
#include <vector>

namespace kvex::test {

/// Describes the control in one line: its kind, its name, its caption in quotes, then each property
/// that differs from its default. The minimum size is left out. Example: button cmdAdd "&Add"
/// disabled waits="Type a word first" default
[[nodiscard]] std::string rowOf(const ControlDesign &control);

/// Expects the design to have this name and title, and the controls of these rows in this order.
void expectDesign(const WindowDesign &design, const std::string &name, const std::string &title,
                  const std::vector<std::string> &rows);

} // namespace kvex::test
