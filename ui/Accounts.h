// The accounts that a dialog offers, chosen by their use.
#pragma once

#include <functional>
#include <string>

namespace kvex {

enum class AccountUse { receiving, sending, any };

/// Calls `offer` for each account of rsAccounts that fits `use`, in the order of the record set.
/// Leaves the record set at its end. An account without a bind mode can neither receive nor send.
/// An account without a name is offered with the name "".
void forEachAccount(
    AccountUse use,
    const std::function<void(const std::u16string &name, const std::u16string &id)> &offer);

} // namespace kvex
