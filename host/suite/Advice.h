// What the user can do about an error: the one home of this advice.
#pragma once

#include "platform/Error.h"

#include <string>

namespace kvex::host {

/// Where the user reads the advice. It decides how they begin anew.
enum class Place { rulesWindows, addressBook, terminal };

/// What the user can do, in whole sentences. "" when the description says all there is to say.
[[nodiscard]] std::u16string adviceFor(HelpContext context, Place place);

/// The error's description, followed by the advice.
[[nodiscard]] std::u16string withAdvice(const Error &error, Place place);

} // namespace kvex::host
