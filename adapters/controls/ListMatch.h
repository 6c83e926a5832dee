// How a list's findItem compares texts.
#pragma once

#include "platform/controls/ListView.h"

#include <string>
#include <string_view>

namespace kvex::controls {

class ListMatch {
public:
    ListMatch(std::u16string_view text, FindMatch match);
    [[nodiscard]] bool operator()(std::u16string_view rowText) const;

private:
    std::u16string folded_;
    FindMatch match_;
};

} // namespace kvex::controls
