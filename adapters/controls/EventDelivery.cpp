#include "adapters/controls/EventDelivery.h"

#include "platform/Text.h"

#include <algorithm>
#include <iostream>

namespace kvex::controls {

void reportUnhandled(std::u16string_view where, const ErrorObserver &observer) {
    const Error error = Error::current();
    std::string line =
        "KVEXMessageRules: unhandled error in " + toUtf8(where) + ": " + error.what();
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    std::cerr << line + '\n' << std::flush;
    if (observer) {
        observer(error);
    }
}

} // namespace kvex::controls
