// The questions of the windows, as expectMessages takes them.
#pragma once

#include "tests/support/TestUtility.h"

namespace kvex::test {

inline const Message clearQuestion{u"Are you sure you want to clear the list?", 4};
inline const Message removeQuestion{u"Are you sure you want to remove this rule?", 4};

} // namespace kvex::test
