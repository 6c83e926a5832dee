// The component servers that this program uses: beside it, or registered.
#pragma once

#include "component/RuleUI.h"
#include "platform/ComPointer.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::host {

/// Where the files stand when they are installed with this program.
[[nodiscard]] std::filesystem::path componentFile();
[[nodiscard]] std::filesystem::path hostSuiteFile();

/// Raises a Failure that says why when `result` is a failed one: "`what` (the reason). `advice`".
void require(HRESULT result, std::string_view what, std::string_view advice);

/// Gets the class from the server in `file` from now on. Raises a Failure when it has none such.
void loadServer(const std::filesystem::path &file, const CLSID &classId);

/// A new object of the component beside this program or, where there is none, of the registered
/// one. Raises a Failure when there is neither, or it cannot start.
[[nodiscard]] ComPointer<IRuleUI> createRuleUI();

} // namespace kvex::host
