// The utility object of a host with windows.
#pragma once

#include "host/suite/UtilityObject.h"

namespace kvex::host {

/// Shows messages in a box with the title "SMS Rules".
class MessageBoxUtility final : public UtilityObject {
private:
    ~MessageBoxUtility() final = default;

    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final;
};

} // namespace kvex::host
