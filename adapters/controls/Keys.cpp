#include "adapters/controls/Keys.h"

#include "platform/Unicode.h"

namespace kvex::controls {

Caption parseCaption(std::u16string_view caption) {
    Caption result;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == u'&') {
            if (++at == caption.size()) {
                break;
            }
            if (caption[at] != u'&' && result.accessKey == 0) {
                result.accessKey = caption[at];
            }
        }
        result.shown.push_back(caption[at]);
    }
    return result;
}

bool hasAccessKey(std::u16string_view caption, char16_t key) {
    const char16_t own = parseCaption(caption).accessKey;
    return own != 0 && foldCase({&own, 1}) == foldCase({&key, 1});
}

} // namespace kvex::controls
