// Rules as they are stored, read through the component, and messages for them.
#pragma once

#include "host/matching/Matcher.h"
#include "platform/Text.h"
#include "tests/support/LoadedComponent.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvex::test {

using host::Message;
using host::PlayedRule;

inline constexpr auto someActions =
    u"<DIST>3</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";

/// A message that came in on 15 March 2024 at noon.
inline Message message() {
    return {u"9811100011", 1, u"Please stop now", u"20240315 12:00:00", false};
}

class MatchingTest : public testing::Test {
protected:
    PlayedRule rule(const std::u16string &queryParam,
                    const std::u16string &actionParam = someActions,
                    const std::u16string &id = u"1") const {
        return {{id, u"Rule " + id, true, id, queryParam, actionParam},
                strings_.read(queryParam, actionParam)};
    }
    [[nodiscard]] const host::RuleStrings &strings() const { return strings_; }
    /// Why the rule does not apply to the message; "" when it does.
    std::string refusal(const std::u16string &queryParam, const Message &message) const {
        host::Matcher matcher({rule(queryParam)});
        const auto refusal = matcher.explain(message).verdicts.at(0).refusal;
        return refusal ? toUtf8(refusal->reason) : std::string();
    }

private:
    LoadedComponent component_;
    host::RuleStrings strings_{component_.object()};
};

} // namespace kvex::test
