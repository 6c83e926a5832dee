#include "adapters/controls/LineBreaks.h"

namespace kvex::controls {

std::u16string withCrLf(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == u'\r' || text[at] == u'\n') {
            result += u"\r\n";
            if (text.substr(at, 2) == u"\r\n") {
                ++at;
            }
        } else {
            result.push_back(text[at]);
        }
    }
    return result;
}

} // namespace kvex::controls
