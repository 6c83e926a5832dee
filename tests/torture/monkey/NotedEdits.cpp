#include "tests/torture/monkey/NotedEdits.h"

#include <algorithm>

namespace kvex::torture {

void NotedEdits::windowOpens(std::u16string_view window) {
    if (window == u"frmRuleEdit") {
        // The editor forgets what was noted before.
        noted_ = Noted::no;
    } else if (window != u"frmRules") {
        // The other windows note some edits; their own tests say which.
        noted_ = std::max(noted_, Noted::perhaps);
    }
}

void NotedEdits::happened(const Event &event, std::u16string_view window) {
    const bool isRules = window == u"frmRules";
    const bool isEditor = window == u"frmRuleEdit";
    if (event.kind == EventKind::tick
            ? isRules || isEditor
            : isRules && event.kind == EventKind::click && event.control.starts_with(u"cmdMove")) {
        noted_ = Noted::yes;
    } else if ((isRules || isEditor) &&
               (event.kind == EventKind::key || event.kind == EventKind::accessKey ||
                event.kind == EventKind::write || event.kind == EventKind::type)) {
        // They may have moved or ticked a row, or changed the name.
        noted_ = std::max(noted_, Noted::perhaps);
    }
}

} // namespace kvex::torture
