// What the command "help" prints. Lines have at most 80 characters.
#pragma once

#include "host/kvexrules/Commands.h"

#include <string>
#include <string_view>

namespace kvex::host {

/// "show [OPTION...] [ID...]".
[[nodiscard]] std::string formOf(const Command &command);

/// "--format text|ansi|html".
[[nodiscard]] std::string formOf(const Option &option);

/// One line for each command, and what all commands have in common.
[[nodiscard]] std::string generalHelp(CommandTable commands);

/// The page of one command.
[[nodiscard]] std::string helpFor(const Command &command);

/// What all commands have in common, in titled sections. A text is written as a command's
/// description is.
struct HelpSection {
    std::string_view title;
    std::string_view text;
};
[[nodiscard]] std::span<const HelpSection> helpSections();

} // namespace kvex::host
