// How the lists of all windows begin: without rows, with one column of texts and hidden ones.
#pragma once

#include "platform/controls/ListView.h"

#include <string>
#include <vector>

namespace kvex {

/// Empties the list; `hidden` are the headers of the columns whose sub-items nobody sees.
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
