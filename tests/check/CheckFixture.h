// Checks rules that a test writes down as they are stored.
#pragma once

#include "host/check/CheckReport.h"
#include "tests/support/LoadedComponent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Text.h"
#include <numeric>
#include <string>
#include <vector>

namespace kvex::host {

inline constexpr auto harmlessAction =
    u"<DIST>3</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";
inline constexpr auto harmlessCondition =
    u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>STOP</WORD>";

/// The parts that a row needs, around what a test is about.
inline std::u16string query(const std::u16string &conditions) {
    return u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>" + conditions;
}
inline std::u16string actions(const std::u16string &some, std::u16string_view deletes = u"NO",
                              std::u16string_view stops = u"NO") {
    return some + u"<DELETE>" + std::u16string(deletes) + u"</DELETE><IGNOREFURTHERRULES>" +
           std::u16string(stops) + u"</IGNOREFURTHERRULES>";
}

/// Users 3 and 7 are live, and 8 is deleted. Account 1 receives, 2 sends, 3 does both, 4 is
/// deleted, and 5 has no mode. It is noon on 15 March 2024.
class CheckTest : public testing::Test {
protected:
    /// Adds an enabled rule behind the others. Its id is its number.
    StoredRule &add(const std::u16string &queryParam, const std::u16string &actionParam) {
        const std::u16string number = toText(static_cast<std::int64_t>(rows.rules.size() + 1));
        return rows.rules.emplace_back(
            StoredRule{number, u"Rule " + number, true, number, queryParam, actionParam});
    }
    StoredRule &addConditions(const std::u16string &conditions) {
        return add(query(conditions), harmlessAction);
    }
    StoredRule &addActions(const std::u16string &actionParam) {
        return add(harmlessCondition, actionParam);
    }

    CheckReport report(Severity least = Severity::note) {
        book.emplace(rows, strings, now);
        std::vector<std::size_t> places(book->rules().size());
        std::iota(places.begin(), places.end(), std::size_t{0});
        return checkRules(*book, places, least);
    }
    /// "ID CODE" for each finding.
    std::vector<std::string> codes() {
        std::vector<std::string> codes;
        for (const Finding &finding : report().findings) {
            codes.push_back(toUtf8(finding.rule->row.id) + " " + std::string(finding.kind->code));
        }
        return codes;
    }
    /// The one finding with this code.
    Remark remark(std::string_view code) {
        std::vector<Remark> remarks;
        for (const Finding &finding : report().findings) {
            if (finding.kind->code == code) {
                remarks.push_back(finding.remark);
            }
        }
        EXPECT_EQ(remarks.size(), 1U) << code;
        return remarks.empty() ? Remark{} : remarks.front();
    }
    std::string reason(std::string_view code) { return toUtf8(remark(code).reason); }

    StoredRows rows{{},
                    {},
                    {{u"3", u"Anna"}, {u"7", u"Ben"}},
                    {{{u"1", u"In"}, u"RECEIVER"},
                     {{u"2", u"Out"}, u"Transmitter"},
                     {{u"3", u"Both"}, u"TRANSCEIVER"},
                     {{u"5", u"Odd"}, u""}},
                    {u"8"},
                    {u"4"}};
    test::LoadedComponent component;
    RuleStrings strings{component.object()};
    std::u16string now = u"20240315 12:00:00";
    std::optional<Rulebook> book;
};

} // namespace kvex::host
