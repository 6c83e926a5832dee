// The accounts that a dialog offers, by what they are used for.
#pragma once

#include <functional>
#include <string>

namespace kvex {

enum class AccountUse { receiving, sending, any };

/// Gives each account of rsAccounts that serves for `use` to `offer`, in the record set's order,
/// and leaves the set at its end. An account without bind mode neither receives nor sends. One
/// without a name has the name "": it keeps none behind it from being offered.
void forEachAccount(
    AccountUse use,
    const std::function<void(const std::u16string &name, const std::u16string &id)> &offer);

} // namespace kvex
