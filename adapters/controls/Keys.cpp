#include "adapters/controls/Keys.h"

#include "platform/Unicode.h"

namespace kvex::controls {

Key withoutShift(Key key) {
    switch (key) {
    case Key::selectUp:
        return Key::up;
    case Key::selectDown:
        return Key::down;
    case Key::selectLeft:
        return Key::left;
    case Key::selectRight:
        return Key::right;
    case Key::selectWordLeft:
        return Key::wordLeft;
    case Key::selectWordRight:
        return Key::wordRight;
    case Key::selectHome:
        return Key::home;
    case Key::selectEnd:
        return Key::end;
    default:
        return key;
    }
}

Caption parseCaption(std::u16string_view caption) {
    Caption result;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == u'&') {
            if (++at == caption.size()) {
                break;
            }
            if (caption[at] != u'&' && result.accessKey == 0) {
                result.accessKey = caption[at];
                result.accessKeyAt = result.shown.size();
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
