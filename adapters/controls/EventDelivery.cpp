#include "adapters/controls/EventDelivery.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <iostream>

namespace kvex::controls {

void reportUnhandled(std::u16string_view where, const ErrorObserver &observer) {
    const Error error = Error::current();
    std::cerr << "KVEXMessageRules: unhandled error in " + toUtf8(where) + ": " +
                     toUtf8(visible(fromUtf8(error.what()))) + '\n'
              << std::flush;
    if (observer) {
        observer(error);
    }
}

} // namespace kvex::controls
