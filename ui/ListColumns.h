// How every list of a window begins: no rows, one visible column and some hidden ones.
#pragma once

#include "platform/controls/ListView.h"

#include <string>
#include <vector>

namespace kvex {

/// Empties the list and makes its columns. `hidden` are the headers of the columns without width;
/// their sub-items hold values that the user does not see.
inline void beginList(ListView &list, const std::u16string &shown,
                      const std::vector<std::u16string> &hidden = {}) {
    list.clearRows();
    list.clearColumns();
    list.addColumn(shown, 0.95);
    for (const std::u16string &header : hidden) {
        list.addColumn(header, 0);
    }
}

} // namespace kvex
