// Loads the component servers that this program uses.
#pragma once

#include "host/rules/Rule.h"
#include "kvex/ComPointer.h"
#include "kvex/RuleUI.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::host {

/// The libraries of this program: in its own folder, or else in the folder that libraries are
/// installed in. When they are missing, the paths are those in its own folder.
[[nodiscard]] std::filesystem::path componentFile();
[[nodiscard]] std::filesystem::path hostSuiteFile();

/// If `result` is a failure, raises a Failure with this text: "`what` (the reason). `advice`".
void require(HRESULT result, std::string_view what, std::string_view advice);

/// From now on takes the class from the server in `file`. Raises a Failure if the file does not
/// serve the class.
void loadServer(const std::filesystem::path &file, const CLSID &classId);

/// Creates an object of this program's component, or else of the registered component.
/// Raises a Failure when there is neither or when it cannot start.
[[nodiscard]] ComPointer<IRuleUI> createRuleUI();

/// The reading and writing of rules by the component that createRuleUI takes. Raises a Failure as
/// that does. Fails as the constructor of RuleStrings does.
[[nodiscard]] RuleStrings createRuleStrings();

} // namespace kvex::host
