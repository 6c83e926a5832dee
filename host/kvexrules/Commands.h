// The program's commands and options, in the order of the help.
#pragma once

#include "host/kvexrules/CommandLine.h"

#include <span>

namespace kvex::host {

[[nodiscard]] std::span<const CommandDescription> commands();
[[nodiscard]] std::span<const OptionDescription> options();

/// Run the commands. Each returns the exit status or raises a Failure.
int editCommand(const Request &request);
int listCommand(const Request &request);
int showCommand(const Request &request);
int contactsCommand(const Request &request);
int initCommand(const Request &request);
int registerCommand(const Request &request);
int unregisterCommand(const Request &request);
int helpCommand(const Request &request);
int versionCommand(const Request &request);

} // namespace kvex::host
