// What the result of ShowRules must say about edits, after the events so far.
#pragma once

#include "tests/torture/monkey/Act.h"

#include <string_view>

namespace kvex::torture {

class NotedEdits {
public:
    void windowOpens(std::u16string_view window);
    /// An event in the window has taken place.
    void happened(const Event &event, std::u16string_view window);
    /// Whether ShowRules may give this result after a session that opened.
    [[nodiscard]] bool allow(std::int32_t result) const {
        return noted_ == Noted::perhaps ? result == 1 || result == 99
                                        : result == (noted_ == Noted::yes ? 99 : 1);
    }

private:
    enum class Noted { no, perhaps, yes };

    Noted noted_ = Noted::no;
};

} // namespace kvex::torture
